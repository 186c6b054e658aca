#pragma once

#include <QMessageBox>

/// The modal boxes of the program.
namespace messagebox {

enum class TitleBar {
    WithoutCloseButton,       ///< a dialog with a title bar and without a close button
    WithoutContextHelpButton, ///< a dialog with a title bar and without a context-help button
};

struct Box
{
    QString title;
    QString text; ///< rich text
    QMessageBox::StandardButtons buttons = QMessageBox::Ok;
    QMessageBox::StandardButton defaultButton = QMessageBox::Ok;
    TitleBar titleBar = TitleBar::WithoutContextHelpButton;
    QMessageBox::Icon icon = QMessageBox::Warning;
};

/// Runs the box modally over `parent`. True if it was answered with Ok; otherwise the line
/// "<<< dialog rejected" is written to standard output.
bool accepted(QWidget *parent, const Box &box);

} // namespace messagebox
