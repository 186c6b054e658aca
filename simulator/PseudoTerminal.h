#pragma once

#include <QByteArray>
#include <QObject>
#include <QString>

class QSocketNotifier;

/// The camera's end of a serial line: a pseudo-terminal in raw mode, whose device a client opens
/// like any serial port.
class PseudoTerminal : public QObject
{
    Q_OBJECT

public:
    explicit PseudoTerminal(QObject *parent = nullptr);
    ~PseudoTerminal() override;

    /// Opens a new line; false with errno set if the system refuses.
    bool open();
    /// Ends the line: a client that has the device open sees it hang up.
    void close();
    bool isOpen() const { return m_master >= 0; }

    /// Path of the device that clients open.
    QString path() const { return m_path; }

    /// Queues bytes for the client and writes as many as the line takes; dropped while closed. A
    /// client that never reads loses what comes after the first megabyte.
    void write(const QByteArray &bytes);
    /// Bytes that wait because the line takes no more.
    int backlog() const { return m_pending.size(); }
    /// True once the client has read everything that was written.
    bool isDrained() const;

signals:
    void signalReceived(const QByteArray &bytes);

private:
    void readAvailable();
    void writePending();

    int m_master = -1;
    int m_slave = -1;
    QString m_path;
    QByteArray m_pending;
    QSocketNotifier *m_readable = nullptr;
    QSocketNotifier *m_writable = nullptr;
};
