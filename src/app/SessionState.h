#pragma once

#include <QObject>
#include <QString>

#include <functional>
#include <vector>

/// Follows the connection and the commands on the line and says in words where they stand: which
/// camera is connected, and how the last command ended.
///
/// The requests that the program repeats by itself (SBUS levels) and the command that follows an
/// acknowledged write are left out, so that they never hide what the operator did. A write that the
/// camera did not acknowledge stays in view behind later commands until it is repeated or another
/// unit is connected; so do live settings that did not reach the camera, until they do.
class SessionState : public QObject
{
    Q_OBJECT

public:
    using Clock = std::function<qint64()>; ///< milliseconds from any start, never going back

    /// How a command ended, in words; text() joins them.
    struct Outcome
    {
        QString title; ///< of the command; empty if `end` says all
        QString end;
        bool done = false; ///< acknowledged: nothing more to tell
        QString text() const;
    };

    /// Stands between the parts of its texts.
    static QString separator();

    explicit SessionState(QObject *parent = nullptr, Clock clock = {});

    /// A port was opened: nothing is known of the camera behind it yet.
    void opened(const QString &port);
    /// The port was closed or has gone; what was not answered yet will not be.
    void closed();
    /// The camera's identity; an empty serial number is left out. `firmware`: decimal yyyymmdd.
    void identified(const QString &model, const QString &serial, quint32 firmware);
    /// The camera's record reached the form.
    void configurationRead();
    /// The camera's record was refused; `defect` says why.
    void configurationRefused(const QString &defect);
    /// A command is about to go to the port.
    void sent(quint32 command, bool portOpen);
    /// The command that was told last found no room behind what the camera does not take.
    void notTaken(quint32 command);
    /// Code of any message from the camera.
    void received(quint32 code);
    /// A change on the form was not sent as live settings, because a command went shortly before.
    void liveSettingsDropped();
    /// Whether bytes wait because the device does not take them.
    void setWriteStalled(bool stalled);

    bool isConnected() const { return m_connected; }
    /// True while lastCommand() counts seconds.
    bool isWaiting() const;
    /// "Not connected", or port, model, serial number, firmware and what is missing.
    QString connection() const;
    /// connection(), and without one what was connected last.
    QString connectionDetails() const;
    /// The last command and how it ended, after the writes and live settings that the camera does
    /// not hold; empty before the first command.
    QString lastCommand() const;
    /// The parts of lastCommand(), in its order.
    std::vector<Outcome> outcomes() const;

signals:
    void changed();

private:
    enum class End {
        Waiting,
        Acknowledged,
        NoRestart, ///< acknowledged, but the camera does not restart with it
        Refused,
        NotKnown,   ///< to the camera
        PortClosed, ///< before an answer
        NotSent,    ///< for want of an open port
        NotTaken,   ///< for want of room behind what waits for the camera
        Unusable,   ///< answered with a record that was refused
        Dropped,    ///< by this program
    };

    struct Command
    {
        quint32 code = 0;
        End end = End::Waiting;
        int unanswered = 0; ///< requests of this code that are still to be answered
        qint64 since = 0;   ///< time of the last one
        QString defect;
    };

    /// A request that is left out of view and is still to be answered.
    struct Poll
    {
        quint32 code;
        qint64 since;
    };

    bool answersPoll(quint32 code);
    void forgetOldPolls();
    void refuseRestart();
    bool has(quint32 code) const;
    /// Whether live settings did not reach the camera, or got no answer for long.
    bool leavesEarlierValue(const Command &command) const;
    void makeLast(quint32 code);
    void settle(Command &command, End end);
    void forget(quint32 code);
    QString unit() const;
    Outcome describe(const Command &command) const;

    Clock m_clock;
    bool m_connected = false;
    bool m_stalled = false;
    bool m_configurationRead = false;
    QString m_port;
    QString m_model;
    QString m_serial;
    QString m_lastUnit; ///< identified last, in this connection or before
    quint32 m_firmware = 0;
    std::vector<Poll> m_polls;
    std::vector<Command> m_concerns; ///< earlier ones that the camera does not hold
    Command m_last;
};
