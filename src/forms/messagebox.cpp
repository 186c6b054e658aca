#include "forms/messagebox.h"

#include "diagnostics/diagnostics.h"

namespace messagebox {

bool accepted(QWidget *parent, const Box &box)
{
    const Qt::WindowFlags without = box.titleBar == TitleBar::WithoutCloseButton
                                        ? Qt::WindowCloseButtonHint
                                        : Qt::WindowContextHelpButtonHint;
    QMessageBox dialog(parent);
    // Before the buttons: new flags take the focus from the default one, and it would go to the
    // first.
    dialog.setWindowFlags((Qt::Dialog | Qt::WindowTitleHint) & ~without);
    dialog.setWindowTitle(box.title);
    dialog.setText(box.text);
    dialog.setIcon(box.icon);
    dialog.setStandardButtons(box.buttons);
    dialog.setDefaultButton(box.defaultButton);
    if (dialog.exec() == QMessageBox::Ok)
        return true;
    diagnostics::out(QStringLiteral("<<< dialog rejected"));
    return false;
}

} // namespace messagebox
