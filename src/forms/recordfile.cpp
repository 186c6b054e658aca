#include "forms/recordfile.h"

#include <QFile>
#include <QFileInfo>

#ifdef Q_OS_UNIX
#include <sys/stat.h>
#endif

namespace recordfile {

constexpr qint64 longestRead = 0x10000;

std::optional<QByteArray> read(const QString &path)
{
    QFile file(path);
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly))
        return std::nullopt;
    return file.read(qMin(file.size(), longestRead));
}

bool isPipe(const QString &path)
{
#ifdef Q_OS_UNIX
    struct stat status = {};
    return stat(QFile::encodeName(path).constData(), &status) == 0 && S_ISFIFO(status.st_mode);
#else
    Q_UNUSED(path)
    return false;
#endif
}

} // namespace recordfile
