#pragma once

#include "support/cameraend.h"
#include "support/captureddiagnostics.h"
#include "support/windowundertest.h"

#include <QElapsedTimer>
#include <QPlainTextEdit>

/// Line of the check 100 ms after a send.
inline const QString notSent =
    QStringLiteral("<<< This should not have happened! Message was not send\n");

/// The window connected to a camera that the test plays. Its first requests are answered, no
/// command is outstanding and standard output is empty. Their checks, 100 ms after them, may be
/// still to come: they look at whatever is outstanding then, so their line counts only after
/// settle().
class Exchange
{
public:
    Exchange()
    {
        if (!tool.connectTo(camera.path()))
            qFatal("no connection");
        send(COMIO_CMD_DO_FFC, "\1");
        camera.send(233);
        if (!QTest::qWaitFor([this] { return !tool.busy() && camera.commands().size() == 2; }))
            qFatal("no exchange");
        lines.clear();
    }

    /// Lets the checks of all commands sent so far pass.
    bool settle()
    {
        QElapsedTimer time;
        time.start();
        const bool passed = QTest::qWaitFor([&] { return time.elapsed() > 120; });
        lines.clear();
        return passed;
    }

    /// Standard error without the line of the check.
    QString errors() const { return QString(lines.err()).remove(notSent); }

    void send(ComioInterfaceCommand_TypeDef command, const QByteArray &payload = {},
              unsigned short part = 1, unsigned short count = 1)
    {
        tool.window.slotSendMessage(payload.constData(), static_cast<unsigned long>(payload.size()),
                                    part, count, command);
    }

    QString gpsText() { return tool.get<QPlainTextEdit>("pteGPSstream")->toPlainText(); }

    CapturedDiagnostics lines;
    CameraEnd camera;
    WindowUnderTest tool;
};
