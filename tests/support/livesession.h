#pragma once

#include "app/messageState.h"
#include "support/cameraend.h"
#include "support/windowundertest.h"

#include <QTimer>

/// A window connected to a camera, with nothing sent for a long time.
class LiveSession : public WindowUnderTest
{
public:
    /// Key of the model; 0 for none.
    explicit LiveSession(quint32 model)
    {
        if (model)
            chooseModel(model);
        connected = connectTo(camera.path());
        forgetLastSend();
    }

    void click(const char *button) { get<QPushButton>(button)->click(); }

    /// Whether everything sent so far has arrived: a command sent now follows it.
    bool arrived()
    {
        const int before = camera.count(133);
        window.on_pb_ffc_doffc_clicked();
        return QTest::qWaitFor([&] { return camera.count(133) > before; });
    }

    /// Live settings are held back for a while after any command; this one is long ago.
    static void forgetLastSend() { messageState.sendTime = 0; }

    CameraEnd camera;
    bool connected = false;
};

/// Set when a single shot, started now, has fired.
struct Shot
{
    explicit Shot(int ms)
    {
        QTimer::singleShot(ms, &context, [this] { fired = true; });
    }
    QObject context;
    bool fired = false;
};
