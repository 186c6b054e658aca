#pragma once

#include "simulator/Camera.h"
#include "simulator/DeviceLink.h"
#include "simulator/FaultyLine.h"
#include "simulator/FrameLog.h"
#include "simulator/PseudoTerminal.h"

#include "link/FrameParser.h"
#include "link/kovoPacketManager.h"

#include <QObject>
#include <QTimer>

/// One simulated camera at work: joins the line, the frames and the camera.
class Session : public QObject
{
    Q_OBJECT

public:
    struct Settings
    {
        QString link;          ///< path of the lasting link, empty for none
        bool restarts = false; ///< the line goes away for a second after the all-ones command
        Faults faults;
        quint32 seed = 1;
    };

    Session(const Camera::Settings &camera, const Settings &settings, const FrameLog &log);

    /// Opens the line, sets the link and announces the device. Returns what is wrong, empty on
    /// success.
    QString start();

    /// Stops or resumes all faults.
    void setFaultsPaused(bool paused);

signals:
    /// A line is open under this path; again after each restart.
    void signalDeviceReady(const QString &path);
    /// The line could not be opened again after a restart.
    void signalFailed(const QString &error);

private:
    void received(const QByteArray &bytes);
    void handle(quint32 command, const QByteArray &payload);
    void send(const Camera::Answer &answer);
    void leaveOnceRead();
    void closeOnceRead();
    void closeLine();

    Settings m_settings;
    FrameLog m_log;
    Camera m_camera;
    FrameParser m_parser;
    kovoPacketManager m_frames;
    PseudoTerminal m_line;
    FaultyLine m_output;
    DeviceLink m_link;
    QTimer m_gps;
    QTimer m_farewell;
    int m_farewellChecks = 0;
};
