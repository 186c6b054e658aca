#include "forms/filedialog.h"

#include <QDir>
#include <QFileDialog>

namespace filedialog {

namespace {

/// Where the last dialog ended; empty before the first one.
QString &lastFolder()
{
    static QString folder;
    return folder;
}

bool hasLastFolder()
{
    return !lastFolder().isEmpty() && QDir(lastFolder()).exists();
}

/// Where a dialog ended that the operator left with this choice.
QString folderOf(const QString &path)
{
    const QFileInfo info(path);
    return info.isDir() ? info.absoluteFilePath() : info.absolutePath();
}

} // namespace

QString chosen(QFileDialog &dialog)
{
    if (hasLastFolder())
        dialog.setDirectory(lastFolder());
    const bool accepted = dialog.exec() == QDialog::Accepted;
    QString path = accepted ? dialog.selectedFiles().value(0) : QString();
    lastFolder() = path.isEmpty() ? dialog.directory().absolutePath() : folderOf(path);
    return path;
}

QString saveFileName(QWidget *parent, const QString &caption, const QString &name,
                     const QString &filter)
{
    QFileDialog dialog(parent, caption, hasLastFolder() ? lastFolder() : QString(), filter);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setFileMode(QFileDialog::AnyFile);
    dialog.selectFile(name);
    return chosen(dialog);
}

} // namespace filedialog
