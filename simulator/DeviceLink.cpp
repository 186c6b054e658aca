#include "simulator/DeviceLink.h"

#include <QFile>

#include <cerrno>
#include <climits>
#include <cstdio>
#include <sys/stat.h>
#include <unistd.h>

DeviceLink::DeviceLink(const QString &path) : m_path(QFile::encodeName(path)) {}

QString DeviceLink::pointTo(const QString &target)
{
    if (m_path.isEmpty())
        return {};
    struct stat status;
    if (::lstat(m_path, &status) == 0 && !S_ISLNK(status.st_mode))
        return QStringLiteral("%1 exists and is no symbolic link").arg(QFile::decodeName(m_path));

    // A renamed link replaces the old one in one step: a client never finds the name missing.
    m_target = QFile::encodeName(target);
    const QByteArray fresh = m_path + '.' + QByteArray::number(::getpid());
    ::unlink(fresh);
    if (::symlink(m_target, fresh) != 0 || ::rename(fresh, m_path) != 0) {
        const QString reason = qt_error_string(errno);
        ::unlink(fresh);
        return QStringLiteral("cannot link %1: %2").arg(QFile::decodeName(m_path), reason);
    }
    return {};
}

void DeviceLink::remove()
{
    if (m_target.isEmpty())
        return;
    char target[PATH_MAX];
    const ssize_t length = ::readlink(m_path, target, sizeof target);
    if (length >= 0 && QByteArray(target, int(length)) == m_target)
        ::unlink(m_path);
    m_target.clear();
}
