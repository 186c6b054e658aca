#pragma once

#include <QByteArray>
#include <QStringList>

/// Tells when it is worth looking for serial ports: that takes many files to be read, and hardly
/// ever is there anything new. It compares the names in the folders in which the system shows its
/// devices, which is cheap.
class PortWatch
{
public:
    /// Watches the system's own folders. Where the system has none, every look is worth it.
    PortWatch();
    /// Watches these folders; one that cannot be read makes every look worth it.
    explicit PortWatch(const QStringList &folders);

    /// True if the ports may have changed since the last call; at the first one, for some time
    /// after each change, until the system has set the new device up, and now and then.
    bool isWorthALook();

private:
    /// Everything that is in the folders; null if one of them cannot be read.
    QByteArray names() const;

    QStringList m_folders;
    QByteArray m_names;
    int m_looksAfterChange = 0;
    int m_callsSinceLook = 0;
};
