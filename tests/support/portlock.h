#pragma once

#include <QFileInfo>
#include <QLockFile>
#include <QString>

/// The lock files by which QSerialPort keeps others out of a port.
namespace portlock {

/// Waits, ten seconds at most, until no one holds the lock of the device at `path`.
///
/// QSerialPort closes its end before it removes the lock file of that name. If the device is a
/// pseudo-terminal, its number may be given out again in between, and whoever gets it would find
/// the new device locked. Locks that a program left behind when it crashed are removed.
inline void waitUntilFree(const QString &path)
{
    QString name = path;
    if (name.startsWith(QLatin1String("/dev/")))
        name.remove(0, 5);
    name.replace(QLatin1Char('/'), QLatin1Char('_'));
    QLockFile(QStringLiteral("/var/lock/LCK..") + name).tryLock(10000);
}

} // namespace portlock
