#include "app/SessionState.h"

#include "app/commandTitle.h"
#include "diagnostics/escaped.h"
#include "link/ComioInterfaceCommand.h"

#include <QElapsedTimer>
#include <QStringList>

#include <algorithm>
#include <utility>

namespace {

constexpr qint64 givenUp = 5000; // ms after which an answer belongs to a later request

SessionState::Clock steadyClock()
{
    QElapsedTimer timer;
    timer.start();
    return [timer] { return timer.elapsed(); };
}

bool isWrite(quint32 command)
{
    return command == COMIO_CMD_SET_CONFIG || command == COMIO_CMD_SET_SERIAL;
}

/// What the program sends without being asked to.
bool isAutomatic(quint32 command)
{
    return command == COMIO_CMD_GET_SBUS_LEVELS || command == COMIO_CMD_ALL_BITS_SET;
}

} // namespace

QString SessionState::separator()
{
    return QStringLiteral(" \u00B7 ");
}

SessionState::SessionState(QObject *parent, Clock clock)
    : QObject(parent), m_clock(clock ? std::move(clock) : steadyClock())
{
}

void SessionState::opened(const QString &port)
{
    m_connected = true;
    m_stalled = false;
    m_configurationRead = false;
    m_polls.clear();
    if (m_last.code == COMIO_CMD_SET_LIVE_SETTINGS)
        m_last = {}; // of a camera that may be another one
    m_port = diagnostics::escaped(port);
    m_model.clear();
    m_serial.clear();
    emit changed();
}

void SessionState::closed()
{
    m_connected = false;
    m_stalled = false;
    for (Command &command : m_concerns)
        if (command.end == End::Waiting)
            settle(command, End::PortClosed);
    if (m_last.end == End::Waiting && m_last.code != 0)
        settle(m_last, End::PortClosed);
    forget(COMIO_CMD_SET_LIVE_SETTINGS);
    emit changed();
}

void SessionState::identified(const QString &model, const QString &serial, quint32 firmware)
{
    m_model = diagnostics::escaped(model);
    m_serial = diagnostics::escaped(serial);
    m_firmware = firmware;
    const QString unit = m_model + separator() + m_serial;
    const QString earlier = std::exchange(m_lastUnit, unit);
    if (!earlier.isEmpty() && earlier != unit)
        m_concerns.clear();
    emit changed();
}

void SessionState::configurationRead()
{
    m_configurationRead = true;
    forget(COMIO_CMD_SET_LIVE_SETTINGS);
    emit changed();
}

void SessionState::configurationRefused(const QString &defect)
{
    makeLast(COMIO_CMD_GET_CONFIG);
    m_last = {COMIO_CMD_GET_CONFIG, End::Unusable, 0, m_clock(), defect};
    emit changed();
}

void SessionState::sent(quint32 command, bool portOpen)
{
    if (isAutomatic(command)) {
        forgetOldPolls();
        if (portOpen)
            m_polls.push_back({command, m_clock()});
        return;
    }
    if (!portOpen && command == COMIO_CMD_SET_LIVE_SETTINGS)
        return; // follows changes of the form, connected or not

    makeLast(command);
    const qint64 now = m_clock();
    const bool counts =
        m_last.end != End::NotSent && m_last.end != End::PortClosed && now - m_last.since < givenUp;
    m_last = {command, portOpen ? End::Waiting : End::NotSent,
              (counts ? m_last.unanswered : 0) + (portOpen ? 1 : 0), now, QString()};
    emit changed();
}

void SessionState::notTaken(quint32 command)
{
    if (m_last.code != command)
        return; // left out of view
    settle(m_last, End::NotTaken);
    emit changed();
}

void SessionState::received(quint32 code)
{
    if (answersPoll(code))
        return;
    if (code == COMIO_CMD_UNKNOWN) {
        // It does not say which command it answers.
        forgetOldPolls();
        if (!m_polls.empty()) {
            const quint32 poll = m_polls.front().code;
            m_polls.erase(m_polls.begin());
            if (poll == COMIO_CMD_ALL_BITS_SET)
                refuseRestart();
        } else if (m_concerns.empty() && m_last.unanswered == 1) {
            settle(m_last, End::NotKnown);
        }
        emit changed();
        return;
    }
    const auto answers = [code](const Command &command) {
        return command.unanswered > 0 &&
               (code == replyOk(command.code) || code == replyFail(command.code));
    };
    auto concern = std::find_if(m_concerns.begin(), m_concerns.end(), answers);
    Command *command = answers(m_last)               ? &m_last
                       : concern != m_concerns.end() ? &*concern
                                                     : nullptr;
    if (!command)
        return;
    // Answers come in the order of the requests: the last one tells what the camera holds.
    --command->unanswered;
    if (code == replyFail(command->code))
        command->end = End::Refused;
    else if (command->unanswered == 0)
        command->end = End::Acknowledged;
    const bool configured =
        command->code == COMIO_CMD_SET_CONFIG && command->end == End::Acknowledged;
    m_concerns.erase(std::remove_if(m_concerns.begin(), m_concerns.end(),
                                    [](const Command &c) { return c.end == End::Acknowledged; }),
                     m_concerns.end());
    if (configured)
        forget(COMIO_CMD_SET_LIVE_SETTINGS);
    emit changed();
}

bool SessionState::answersPoll(quint32 code)
{
    const auto answered = std::find_if(m_polls.begin(), m_polls.end(), [=](const Poll &poll) {
        return code == replyOk(poll.code) || code == replyFail(poll.code);
    });
    if (answered == m_polls.end())
        return false;
    m_polls.erase(answered);
    if (code == replyFail(COMIO_CMD_ALL_BITS_SET)) {
        refuseRestart();
        emit changed();
    }
    return true;
}

void SessionState::forgetOldPolls()
{
    const qint64 now = m_clock();
    m_polls.erase(std::remove_if(m_polls.begin(), m_polls.end(),
                                 [=](const Poll &poll) { return now - poll.since >= givenUp; }),
                  m_polls.end());
}

void SessionState::refuseRestart()
{
    if (m_last.code == COMIO_CMD_SET_CONFIG) {
        if (m_last.end == End::Acknowledged)
            m_last.end = End::NoRestart;
    } else if (!has(COMIO_CMD_SET_CONFIG)) {
        m_concerns.push_back({COMIO_CMD_SET_CONFIG, End::NoRestart, 0, 0, QString()});
    }
}

void SessionState::liveSettingsDropped()
{
    if (!m_connected)
        return;
    forget(COMIO_CMD_SET_LIVE_SETTINGS);
    m_concerns.push_back({COMIO_CMD_SET_LIVE_SETTINGS, End::Dropped, 0, 0, QString()});
    emit changed();
}

void SessionState::setWriteStalled(bool stalled)
{
    m_stalled = stalled;
    emit changed();
}

bool SessionState::isWaiting() const
{
    const auto waits = [](const Command &command) {
        return command.code != 0 && command.end == End::Waiting;
    };
    return waits(m_last) || std::any_of(m_concerns.begin(), m_concerns.end(), waits);
}

QString SessionState::connection() const
{
    return m_connected ? unit() : tr("Not connected");
}

QString SessionState::connectionDetails() const
{
    if (m_connected)
        return unit();
    return m_port.isEmpty() ? tr("Not connected")
                            : tr("Not connected. Last connection: %1").arg(unit());
}

QString SessionState::unit() const
{
    QStringList parts{m_port};
    if (m_stalled)
        parts << tr("does not take what is sent");
    if (m_model.isEmpty()) {
        parts << tr("no camera identified");
    } else {
        parts << m_model;
        if (!m_serial.isEmpty())
            parts << m_serial;
        parts << tr("firmware %1").arg(m_firmware);
    }
    if (!m_configurationRead)
        parts << tr("configuration never read");
    return parts.join(separator());
}

QString SessionState::lastCommand() const
{
    QStringList texts;
    for (const Outcome &outcome : outcomes())
        texts << outcome.text();
    return texts.join(separator());
}

std::vector<SessionState::Outcome> SessionState::outcomes() const
{
    std::vector<Outcome> all;
    for (const Command &command : m_concerns)
        all.push_back(leavesEarlierValue(command)
                          ? describe({command.code, End::Dropped, 0, 0, QString()})
                          : describe(command));
    if (m_last.code != 0)
        all.push_back(describe(m_last));
    return all;
}

QString SessionState::Outcome::text() const
{
    return title.isEmpty() ? end : title + QStringLiteral(": ") + end;
}

bool SessionState::leavesEarlierValue(const Command &command) const
{
    return command.code == COMIO_CMD_SET_LIVE_SETTINGS &&
           (command.end != End::Waiting || m_clock() - command.since >= givenUp);
}

SessionState::Outcome SessionState::describe(const Command &command) const
{
    const auto ended = [&](const QString &how) {
        return Outcome{commandTitle(command.code), how, command.end == End::Acknowledged};
    };
    switch (command.end) {
    case End::Waiting: {
        const int seconds = int((m_clock() - command.since) / 1000);
        return ended(seconds < 1 ? tr("sent") : tr("no answer for %1 s").arg(seconds));
    }
    case End::Acknowledged:
        return ended(command.code == COMIO_CMD_SET_CONFIG ? tr("acknowledged, the camera restarts")
                                                          : tr("acknowledged"));
    case End::NoRestart:
        return ended(tr("acknowledged, restart refused"));
    case End::Refused:
        return ended(tr("refused by the camera"));
    case End::NotKnown:
        return ended(tr("not known to the camera"));
    case End::PortClosed:
        return ended(tr("no answer before the port closed"));
    case End::NotSent:
        return ended(tr("not sent, no port is open"));
    case End::NotTaken:
        return ended(tr("not sent, the camera has not taken what was sent before"));
    case End::Unusable:
        return ended(tr("not usable, %1; the port was closed").arg(command.defect));
    case End::Dropped:
        return {QString(),
                tr("The camera still shows the earlier value: Settings-Preview sends it"), false};
    }
    return {};
}

void SessionState::makeLast(quint32 code)
{
    if (m_last.code == code) {
        forget(code);
        return;
    }
    const bool concerns =
        isWrite(m_last.code) || (m_last.code == COMIO_CMD_SET_LIVE_SETTINGS && !has(m_last.code));
    // A write comes before live settings, for which there may be no room.
    const auto behind = std::find_if(m_concerns.begin(), m_concerns.end(), [](const Command &c) {
        return c.code == COMIO_CMD_SET_LIVE_SETTINGS;
    });
    if (concerns && m_last.end != End::Acknowledged)
        m_concerns.insert(isWrite(m_last.code) ? behind : m_concerns.end(), m_last);
    const auto earlier = std::find_if(m_concerns.begin(), m_concerns.end(),
                                      [=](const Command &command) { return command.code == code; });
    m_last = earlier == m_concerns.end() ? Command{code, End::NotSent, 0, 0, QString()} : *earlier;
    forget(code);
}

void SessionState::settle(Command &command, End end)
{
    command.end = end;
    // What was on its way when the port closed may still be delivered after it.
    if (end != End::PortClosed)
        command.unanswered = 0;
}

bool SessionState::has(quint32 code) const
{
    return std::any_of(m_concerns.begin(), m_concerns.end(),
                       [=](const Command &command) { return command.code == code; });
}

void SessionState::forget(quint32 code)
{
    m_concerns.erase(std::remove_if(m_concerns.begin(), m_concerns.end(),
                                    [=](const Command &c) { return c.code == code; }),
                     m_concerns.end());
}
