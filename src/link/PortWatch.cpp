#include "link/PortWatch.h"

#include <QFile>

#ifdef Q_OS_UNIX
#include <dirent.h>
#endif

// Counted in calls: polls of the port list, two a second.
static constexpr int looksAfterChange = 4;
static constexpr int callsBetweenLooks = 60;

PortWatch::PortWatch()
#ifdef Q_OS_LINUX
    : PortWatch(QStringList{QStringLiteral("/sys/class/tty"), QStringLiteral("/dev")})
#endif
{
}

PortWatch::PortWatch(const QStringList &folders) : m_folders(folders) {}

bool PortWatch::isWorthALook()
{
    const QByteArray now = names();
    if (now.isNull() || now != m_names)
        m_looksAfterChange = looksAfterChange;
    m_names = now;
    if (m_looksAfterChange == 0 && ++m_callsSinceLook < callsBetweenLooks)
        return false;
    m_callsSinceLook = 0;
    if (m_looksAfterChange > 0)
        --m_looksAfterChange;
    return true;
}

QByteArray PortWatch::names() const
{
    QByteArray names;
#ifdef Q_OS_UNIX
    for (const QString &path : m_folders) {
        DIR *folder = opendir(QFile::encodeName(path).constData());
        if (!folder)
            return QByteArray();
        while (const dirent *entry = readdir(folder))
            names.append(entry->d_name).append('/');
        closedir(folder);
    }
#endif
    return names;
}
