#include "simulator/DeviceLink.h"

#include <QFile>
#include <QRegularExpression>

#include <cerrno>
#include <climits>
#include <cstdio>
#include <sys/stat.h>
#include <unistd.h>

namespace {

/// What the link says, empty if there is none.
QByteArray targetOf(const QByteArray &link)
{
    char target[PATH_MAX];
    const ssize_t length = ::readlink(link, target, sizeof target);
    return length < 0 ? QByteArray() : QByteArray(target, int(length));
}

/// A simulator's link names a pseudo-terminal, even if that is gone by now. Any other link is
/// somebody's own, also while it leads nowhere, such as the name of a camera that is unplugged.
bool isLeftBehind(const QByteArray &link)
{
    static const QRegularExpression pseudoTerminal(QStringLiteral("^/dev/pts/[0-9]+\\z"));
    return pseudoTerminal.match(QFile::decodeName(targetOf(link))).hasMatch();
}

} // namespace

DeviceLink::DeviceLink(const QString &path) : m_path(QFile::encodeName(path)) {}

QString DeviceLink::pointTo(const QString &target)
{
    if (m_path.isEmpty())
        return {};
    struct stat status;
    if (::lstat(m_path, &status) == 0 && !S_ISLNK(status.st_mode))
        return QStringLiteral("%1 exists and is no symbolic link").arg(QFile::decodeName(m_path));
    if (!targetOf(m_path).isNull() && !isLeftBehind(m_path))
        return QStringLiteral("%1 is a link to %2, not one that a simulator has left behind")
            .arg(QFile::decodeName(m_path), QFile::decodeName(targetOf(m_path)));

    // A renamed link replaces the old one in one step: a client never finds the name missing.
    m_target = QFile::encodeName(target);
    const QByteArray fresh = m_path + '.' + QByteArray::number(::getpid());
    if (isLeftBehind(fresh))
        ::unlink(fresh);
    const bool linked = ::symlink(m_target, fresh) == 0;
    if (!linked || ::rename(fresh, m_path) != 0) {
        const QString reason = qt_error_string(errno);
        if (linked)
            ::unlink(fresh);
        m_target.clear();
        return QStringLiteral("cannot link %1: %2").arg(QFile::decodeName(m_path), reason);
    }
    return {};
}

void DeviceLink::remove()
{
    if (m_target.isEmpty())
        return;
    if (targetOf(m_path) == m_target)
        ::unlink(m_path);
    m_target.clear();
}
