#include "simulator/Session.h"

#include "link/ComioInterfaceCommand.h"

#include <cerrno>

namespace {

constexpr int gpsInterval = 1000;    // ms between two sentences
constexpr int restartTime = 1000;    // ms for which a restarting camera is gone
constexpr int farewellInterval = 50; // ms between two looks whether the last answer was read
constexpr int farewellCheckLimit = 20;

} // namespace

Session::Session(const Camera::Settings &camera, const Settings &settings, const FrameLog &log)
    : m_settings(settings)
    , m_log(log)
    , m_camera(camera)
    , m_frames(nullptr)
    , m_output(m_line, settings.faults, settings.seed)
    , m_link(settings.link)
{
    connect(&m_line, &PseudoTerminal::signalReceived, this, &Session::received);
    m_gps.setInterval(gpsInterval);
    connect(&m_gps, &QTimer::timeout, this, [this] { send(m_camera.gpsMessage()); });
    m_farewell.setInterval(farewellInterval);
    connect(&m_output, &FaultyLine::signalHangupDue, this, &Session::leaveOnceRead);
    connect(&m_output, &FaultyLine::signalOverflow, this, [this] {
        m_log.line(QStringLiteral("   lost: %1 bytes wait already").arg(FaultyLine::waitingLimit));
    });
    connect(&m_farewell, &QTimer::timeout, this, &Session::closeOnceRead);
}

QString Session::start()
{
    if (!m_line.open())
        return QStringLiteral("cannot open a pseudo-terminal: ") + qt_error_string(errno);
    QString error = m_link.pointTo(m_line.path());
    if (!error.isEmpty())
        return error;
    m_output.begin();
    emit signalDeviceReady(m_line.path());
    return {};
}

void Session::received(const QByteArray &bytes)
{
    m_parser.feed(
        bytes, [this](ComioInterfaceCommand_TypeDef command, const QVector<uint8_t> &payload) {
            if (command == COMIO_CMD_CRC_ERROR) {
                m_log.line(QStringLiteral("<- frame with a wrong CRC, ignored"));
                return;
            }
            handle(command,
                   QByteArray(reinterpret_cast<const char *>(payload.constData()), payload.size()));
        });
}

void Session::handle(quint32 command, const QByteArray &payload)
{
    if (m_farewell.isActive())
        return;
    if (m_output.ignores(command)) {
        m_log.request(command, payload.size(), QStringLiteral("ignored"));
        return;
    }
    const Camera::Answer answer =
        m_output.rejects(command)
            ? Camera::Answer{replyFail(command), {}, QStringLiteral("rejected")}
            : m_camera.handle(command, payload);
    m_log.request(command, payload.size(), answer.note);
    send(answer);

    if (!m_camera.isStreamingGps())
        m_gps.stop();
    else if (!m_gps.isActive())
        m_gps.start();

    if (command == COMIO_CMD_ALL_BITS_SET && m_settings.restarts &&
        answer.command == replyOk(command))
        leaveOnceRead();
}

void Session::leaveOnceRead()
{
    if (m_farewell.isActive())
        return;
    m_output.finish();
    m_farewellChecks = 0;
    m_farewell.start();
}

void Session::setFaultsPaused(bool paused)
{
    m_output.setPaused(paused);
    m_log.line(paused ? QStringLiteral("faults paused") : QStringLiteral("faults resumed"));
}

void Session::send(const Camera::Answer &answer)
{
    if (!m_line.isOpen() || m_farewell.isActive())
        return; // a GPS sentence that comes too late
    m_log.answer(answer.command, answer.payload.size());
    QByteArray frame;
    m_frames.prepareMessage(answer.payload.constData(), size_t(answer.payload.size()), 1, 1,
                            static_cast<ComioInterfaceCommand_TypeDef>(answer.command), frame);
    m_output.send(frame);
}

void Session::closeOnceRead()
{
    // A line that closes takes unread bytes with it: the acknowledgement has to arrive first, if
    // there is anyone to read it.
    if (m_output.isSending())
        return;
    if (m_line.isDrained() || ++m_farewellChecks >= farewellCheckLimit)
        closeLine();
}

void Session::closeLine()
{
    m_farewell.stop();
    m_gps.stop();
    m_output.end();
    m_link.remove();
    m_line.close();
    m_camera.restart();
    m_parser = FrameParser();
    m_log.line(QStringLiteral("restarting"));
    QTimer::singleShot(restartTime, this, [this] {
        const QString error = start();
        if (!error.isEmpty())
            emit signalFailed(error);
    });
}
