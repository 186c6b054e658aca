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

const QString separator = QStringLiteral(" \u00B7 ");

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

SessionState::SessionState(QObject *parent, Clock clock)
    : QObject(parent), m_clock(clock ? std::move(clock) : steadyClock())
{
}

void SessionState::opened(const QString &port)
{
    m_connected = true;
    m_stalled = false;
    m_configurationRead = false;
    m_polls = 0;
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
    const QString unit = m_model + separator + m_serial;
    if (std::exchange(m_lastUnit, unit) != unit)
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
        m_polls += portOpen ? 1 : 0;
        return;
    }
    if (!portOpen && command == COMIO_CMD_SET_LIVE_SETTINGS)
        return; // follows changes of the form, connected or not

    makeLast(command);
    const qint64 now = m_clock();
    const bool counts = m_last.code == command && m_last.end == End::Waiting &&
                        m_last.unanswered > 0 && now - m_last.since < givenUp;
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
    if (code == replyOk(COMIO_CMD_GET_SBUS_LEVELS) || code == replyOk(COMIO_CMD_ALL_BITS_SET)) {
        m_polls = std::max(0, m_polls - 1);
        return;
    }
    if (code == COMIO_CMD_UNKNOWN) {
        // It does not say which command it answers.
        if (m_polls > 0)
            --m_polls;
        else if (m_concerns.empty() && m_last.unanswered == 1)
            settle(m_last, End::NotKnown);
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
    return parts.join(separator);
}

QString SessionState::lastCommand() const
{
    QStringList parts;
    for (const Command &command : m_concerns)
        parts << describe(command);
    if (m_last.code != 0)
        parts << describe(m_last);
    return parts.join(separator);
}

QString SessionState::describe(const Command &command) const
{
    const auto ended = [&](const QString &how) {
        return commandTitle(command.code) + QStringLiteral(": ") + how;
    };
    switch (command.end) {
    case End::Waiting: {
        const int seconds = int((m_clock() - command.since) / 1000);
        return ended(seconds < 1 ? tr("sent") : tr("no answer for %1 s").arg(seconds));
    }
    case End::Acknowledged:
        return ended(command.code == COMIO_CMD_SET_CONFIG ? tr("acknowledged, the camera restarts")
                                                          : tr("acknowledged"));
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
        return tr("The camera still shows the earlier value: Settings-Preview sends it");
    }
    return {};
}

void SessionState::makeLast(quint32 code)
{
    if (m_last.code == code)
        return;
    if (isWrite(m_last.code) && m_last.end != End::Acknowledged)
        m_concerns.push_back(m_last);
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

void SessionState::forget(quint32 code)
{
    m_concerns.erase(std::remove_if(m_concerns.begin(), m_concerns.end(),
                                    [=](const Command &c) { return c.code == code; }),
                     m_concerns.end());
}
