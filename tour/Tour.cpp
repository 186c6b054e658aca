#include "Tour.h"

#include <QApplication>
#include <QComboBox>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QFileInfo>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QQuickItem>
#include <QQuickWidget>
#include <QStatusBar>
#include <QTabWidget>
#include <QTextStream>

static constexpr int STEP_MS = 30000; ///< longest wait for one step
static constexpr int LOOK_MS = 10;    ///< time between two looks at the window

static void say(const QString &line)
{
    QTextStream(stdout) << line << '\n';
}

Tour::Tour(const Options &options) : m_options(options)
{
    QObject::connect(&m_boxWatch, &QTimer::timeout, &m_boxWatch, [this] { answerBox(); });
    m_boxWatch.start(LOOK_MS);
}

bool Tour::run()
{
    QVector<Step> steps{&Tour::openWindow};
    if (!m_options.model.isEmpty())
        steps << &Tour::startCamera << &Tour::choosePort << &Tour::connectCamera << &Tour::identify;
    if (m_options.model.startsWith("blend"))
        steps << &Tour::readConfiguration << &Tour::writeConfiguration << &Tour::reconnect
              << &Tour::readConfiguration << &Tour::compare;
    steps << &Tour::takePictures;
    for (const Step step : qAsConst(steps)) {
        if (!(this->*step)() || m_failed)
            return false;
    }
    say("Done");
    return true;
}

bool Tour::openWindow()
{
    if (m_options.factory)
        m_window.showFactoryButtons();
    m_window.show();
    m_window.adjustSize();
    say(QString("Opened the window \"%1\"").arg(m_window.windowTitle()));
    return true;
}

bool Tour::startCamera()
{
    if (!m_camera.start(m_options.model))
        return failed("the simulated camera did not start: " + m_camera.errorText());
    say(QString("Started a simulated camera, model %1").arg(m_options.model));
    return true;
}

bool Tour::choosePort()
{
    auto *ports = widget<QComboBox>("comboBoxPort");
    if (!ports)
        return false;
    m_window.offerPorts({m_camera.port()});
    if (!waitFor("the camera's port in the list",
                 [&] { return ports->findText(m_camera.port()) >= 0; }))
        return false;
    ports->setCurrentIndex(ports->findText(m_camera.port()));
    say("Chose the camera's port in the list");
    return true;
}

bool Tour::connectCamera()
{
    auto *button = widget<QPushButton>("btConnectDisconnect");
    if (!button)
        return false;
    button->click();
    if (!isConnected())
        return failed("the port did not open");
    say("Connected");
    return true;
}

bool Tour::identify()
{
    if (m_options.model == "2.0") {
        // The form of this model has nothing but its tabs: port list and button are taken away.
        auto *button = widget<QPushButton>("btConnectDisconnect");
        if (!button || !waitFor("the camera's identity", [&] { return button->isHidden(); }))
            return false;
        say("Identified a Quorvix 2.0: this model is not configurable over the line");
        return true;
    }
    const QString expected = m_options.model == "blend" ? "Device ID: QX Blend   Serial: "
                                                        : "Device ID: QX Blend Zoom   Serial: ";
    if (!waitFor("the camera's identity",
                 [&] { return m_window.statusBar()->currentMessage().startsWith(expected); }))
        return false;
    say("Identified the camera: " + m_window.statusBar()->currentMessage());
    return true;
}

bool Tour::readConfiguration()
{
    // The identity's reply is followed by the configuration's; a bad record closes the port.
    auto *frameSkip = widget<QLineEdit>("leFrameSkip");
    if (!frameSkip || !waitFor("the configuration", [&] { return !isBusy(); }))
        return false;
    if (!isConnected())
        return failed("the configuration was refused");
    say(QString("Read the configuration: frames skipped while recording: %1")
            .arg(frameSkip->text()));
    return true;
}

bool Tour::writeConfiguration()
{
    auto *frameSkip = widget<QLineEdit>("leFrameSkip");
    auto *write = widget<QPushButton>("btnSetConf");
    if (!frameSkip || !write)
        return false;
    m_written = QString::number(frameSkip->text().toUInt() + 7);
    frameSkip->setText(m_written);
    say(QString("Set the frames to skip to %1").arg(m_written));

    m_expectedBox = "Save configuration";
    write->click();
    if (!m_expectedBox.isEmpty())
        return failed("the question before a write was not asked");
    // A camera restarts only after it has taken the new configuration.
    if (!waitFor("the acknowledged write and the camera's restart", [&] { return !isConnected(); }))
        return false;
    say("Wrote the configuration: the camera acknowledged it and restarts");
    frameSkip->clear(); // what the form shows from here on comes from the camera
    return true;
}

bool Tour::reconnect()
{
    if (!waitFor("the camera's return", [&] { return QFileInfo::exists(m_camera.port()); }))
        return false;
    // The status bar still shows the camera of the first connection.
    m_window.statusBar()->clearMessage();
    return connectCamera() && identify();
}

bool Tour::compare()
{
    auto *frameSkip = widget<QLineEdit>("leFrameSkip");
    if (!frameSkip)
        return false;
    if (frameSkip->text() != m_written)
        return failed(
            QString("the camera holds %1 instead of %2").arg(frameSkip->text(), m_written));
    say("The camera holds what was written");
    return true;
}

bool Tour::takePictures()
{
    auto *tabs = widget<QTabWidget>("tabWidget");
    if (!tabs)
        return false;
    for (int i = 0; i < tabs->count(); ++i) {
        tabs->setCurrentIndex(i);
        QApplication::processEvents();
        const QString name = QString("tab-%1.png").arg(i);
        if (!m_window.grab().save(m_options.output.filePath(name)))
            return failed("cannot save " + m_options.output.filePath(name));
        say(QString("Saved %1: %2").arg(name, tabs->tabText(i)));
    }
    say("Pictures and diagnostic lines are in " + m_options.output.absolutePath());
    return true;
}

template <class Widget>
Widget *Tour::widget(const char *name)
{
    auto *found = m_window.findChild<Widget *>(name);
    if (!found)
        failed(QString("the window has no %1").arg(name));
    return found;
}

/// Runs the event loop until the condition holds; false if that takes too long or a step failed.
bool Tour::waitFor(const char *what, const std::function<bool()> &condition)
{
    QEventLoop loop;
    QTimer look;
    QElapsedTimer elapsed;
    elapsed.start();
    QObject::connect(&look, &QTimer::timeout, &look, [&] {
        if (m_failed || condition() || elapsed.elapsed() > STEP_MS)
            loop.quit();
    });
    look.start(LOOK_MS);
    loop.exec();
    if (m_failed)
        return false;
    return condition() || failed(QString("waited in vain for %1").arg(what));
}

bool Tour::isConnected()
{
    auto *button = widget<QPushButton>("btConnectDisconnect");
    return button && button->text() == "Disconnect";
}

bool Tour::isBusy()
{
    auto *indicator = widget<QQuickWidget>("quickWidget");
    return indicator && indicator->rootObject() &&
           indicator->rootObject()->property("running").toBool();
}

/// Answers the one box that is expected with Ok; any other box fails the tour.
void Tour::answerBox()
{
    auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
    if (!box)
        return;
    if (box->windowTitle() == m_expectedBox) {
        m_expectedBox.clear();
        say(QString("Answered \"%1\" with Ok").arg(box->windowTitle()));
        box->button(QMessageBox::Ok)->click();
    } else {
        failed(QString("unexpected box \"%1\": %2").arg(box->windowTitle(), box->text()));
        box->reject();
    }
}

bool Tour::failed(const QString &why)
{
    say("FAILED: " + why);
    m_failed = true;
    return false;
}
