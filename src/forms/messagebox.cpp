#include "forms/messagebox.h"

#include "diagnostics/diagnostics.h"

namespace messagebox {

bool accepted(QWidget *parent, const Box &box)
{
    const Qt::WindowFlags without = box.titleBar == TitleBar::WithoutCloseButton
                                        ? Qt::WindowCloseButtonHint
                                        : Qt::WindowContextHelpButtonHint;
    QMessageBox dialog(parent);
    dialog.setWindowTitle(box.title);
    dialog.setText(box.text);
    dialog.setIcon(box.icon);
    dialog.setStandardButtons(box.buttons);
    dialog.setDefaultButton(box.defaultButton);
    dialog.setWindowFlags((Qt::Dialog | Qt::WindowTitleHint) & ~without);
    if (dialog.exec() == QMessageBox::Ok)
        return true;
    diagnostics::out(QStringLiteral("<<< dialog rejected"));
    return false;
}

} // namespace messagebox
