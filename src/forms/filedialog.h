#pragma once

#include <QString>

class QFileDialog;
class QWidget;

/// File dialogs of all windows: each starts in the folder where the last one of the session ended.
namespace filedialog {

/// Runs the dialog; the file or folder chosen, empty after a cancel.
QString chosen(QFileDialog &dialog);

/// Asks for the file to save under, with `name` proposed; empty after a cancel.
QString saveFileName(QWidget *parent, const QString &caption, const QString &name,
                     const QString &filter);

} // namespace filedialog
