#include "forms/recordfile.h"

#include <QFileDialog>
#include <QFileInfo>

namespace recordfile {

constexpr qint64 longestRead = 0x10000;

QString chosen(QFileDialog &dialog)
{
    return dialog.exec() == QDialog::Accepted ? dialog.selectedFiles().value(0) : QString();
}

std::optional<QByteArray> read(const QString &path)
{
    QFile file(path);
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly))
        return std::nullopt;
    return file.read(qMin(file.size(), longestRead));
}

} // namespace recordfile
