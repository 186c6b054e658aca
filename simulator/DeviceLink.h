#pragma once

#include <QString>

/// A symbolic link with a lasting name to a device whose name changes.
class DeviceLink
{
public:
    /// An empty path makes a link that does nothing.
    explicit DeviceLink(const QString &path);
    ~DeviceLink() { remove(); }
    DeviceLink(const DeviceLink &) = delete;
    DeviceLink &operator=(const DeviceLink &) = delete;

    /// Points the link to `target`. Of what may be there already it replaces only a link as
    /// simulators make it: one to a pseudo-terminal, /dev/pts/N, even if that is gone. Returns what
    /// is wrong, empty on success.
    QString pointTo(const QString &target);
    /// Removes the link if it still points where it was set to.
    void remove();

private:
    QByteArray m_path;
    QByteArray m_target;
};
