#include "support/cameraend.h"
#include "support/captureddiagnostics.h"
#include "support/modal.h"
#include "support/windowundertest.h"

#include <QLabel>
#include <QStatusBar>
#include <QStatusTipEvent>
#include <QTabWidget>

namespace {

/// What follows the connection, but for the live view.
bool followersEnabled(WindowUnderTest &tool, bool enabled)
{
    for (const char *name :
         {"pbLivePreview", "btnReadConf", "btnSetConf", "gbGPSStream", "LiveEdit", "sbusTester"})
        if (tool.widget(name)->isEnabledTo(&tool.window) != enabled) {
            qWarning("%s is %s", name, enabled ? "disabled" : "enabled");
            return false;
        }
    return true;
}

/// Pulls the camera out as soon as the busy indicator runs: a request is about to be written then.
class Unplugger : public QObject
{
    Q_OBJECT

public:
    Unplugger(CameraEnd &camera, WindowUnderTest &tool) : m_camera(camera)
    {
        connect(tool.get<QQuickWidget>("quickWidget")->rootObject(), SIGNAL(runningChanged()), this,
                SLOT(unplug()));
    }
    bool done() const { return m_done; }

public slots:
    void unplug()
    {
        m_camera.hangUp();
        m_done = true;
    }

private:
    CameraEnd &m_camera;
    bool m_done = false;
};

} // namespace

class TestMainWindowWiring : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { modal::useQtDialogs(); }

    void startsDisconnected()
    {
        CapturedDiagnostics lines;
        WindowUnderTest tool;
        QCOMPARE(tool.window.windowTitle(), QStringLiteral("Quorvix - Configuration - 2.19"));
        QCOMPARE(tool.get<QPushButton>("btConnectDisconnect")->text(), QStringLiteral("Connect"));
        QVERIFY(!tool.busy());
        for (const char *name : {"pbLivePreview", "btnReadConf", "btnSetConf", "gbGPSStream"})
            QVERIFY2(!tool.widget(name)->isEnabledTo(&tool.window), name);
        QVERIFY(!tool.widget("tab_liveview")->isEnabledTo(&tool.window));
        QCOMPARE(tool.window.statusBar()->currentMessage(), QStringLiteral("KoVo"));
        QVERIFY(lines.out().isEmpty());
        QVERIFY(lines.err().isEmpty());
    }

    void hidesWhatNoModelOrOptionAsksFor()
    {
        WindowUnderTest tool;
        for (const char *name : {"gb_Liveview_hotspotdetection", "gb_liveview_layerscaling",
                                 "gb_pheriphery_externalshutteroptions", "label_eso_opt5",
                                 "sb_eso_opt5", "gb_VLC_cam", "pbFactorySettings", "pb_TestWindow"})
            QVERIFY2(tool.hidden(name), name);
        QVERIFY(tool.widget("gb_pheriphery_externalshutteroptions")->isEnabled());
    }

    void allEightTabsStay()
    {
        WindowUnderTest tool;
        auto *tabs = tool.get<QTabWidget>("tabWidget");
        QStringList titles;
        QStringList pages;
        for (int i = 0; i < tabs->count(); ++i) {
            titles << tabs->tabText(i);
            pages << tabs->widget(i)->objectName();
        }
        QCOMPARE(titles,
                 QStringList({"Periphery", "Trigger/FFC", "GPS/Serial", "SBUS/PPM", "Extensions",
                              "Video", "Visible Light Camera", "Recordings"}));
        QCOMPARE(pages, QStringList({"tab_5", "tab_4", "tabSerial", "tab_SBUS", "tab_3",
                                     "tab_liveview", "tabVLC", "tab_2"}));
    }

    void listsOfEnumerationsHoldTheirKeys()
    {
        WindowUnderTest tool;
        auto *hdmi = tool.get<QComboBox>("cbHDMIVideoMode");
        QCOMPARE(hdmi->count(), 2);
        QCOMPARE(hdmi->itemText(0), QStringLiteral("MODE_1080P_30HZ"));
        QCOMPARE(hdmi->itemText(1), QStringLiteral("MODE_1080P_60HZ"));
        auto *exposure = tool.get<QComboBox>("cb_vlc_ae_mode");
        QCOMPARE(exposure->count(), 2);
        QCOMPARE(exposure->itemText(1), QStringLiteral("VISCA_AEMODE_SHUTTER_PRIORITY"));
        QCOMPARE(exposure->currentText(), QStringLiteral("VISCA_AEMODE_FULL_AUTO"));
        auto *speed = tool.get<QComboBox>("cb_vlc_ae_shutterspeed");
        QCOMPARE(speed->count(), 22);
        const char *speeds[] = {"10000", "6000", "4000", "3000", "2000", "1500", "1000", "725",
                                "500",   "350",  "250",  "180",  "120",  "100",  "90",   "60",
                                "30",    "15",   "8",    "4",    "2",    "1"};
        for (int i = 0; i < 22; ++i)
            QCOMPARE(speed->itemText(i), QStringLiteral("SPEED_%1_HZ").arg(speeds[i]));
        QCOMPARE(speed->currentText(), QStringLiteral("SPEED_30_HZ"));
        QVERIFY(!speed->itemData(0).isValid());
    }

    void indicatorHasTheColourOfTheForm()
    {
        WindowUnderTest tool;
        auto *view = tool.get<QQuickWidget>("quickWidget");
        QCOMPARE(view->source(), QUrl(QStringLiteral("qrc:/BusyIndicator.qml")));
        QCOMPARE(view->quickWindow()->color(),
                 tool.get<QLabel>("label")->palette().color(QPalette::Window));
    }

    void newPortListReplacesTheSelectionByItsFirst()
    {
        WindowUnderTest tool;
        auto *ports = tool.get<QComboBox>("comboBoxPort");
        tool.window.slotNewPortList({"ttyA", "ttyB"});
        ports->setCurrentIndex(1);
        tool.window.slotNewPortList({"ttyA", "ttyB", "ttyC"});
        QCOMPARE(ports->count(), 3);
        QCOMPARE(ports->currentText(), QStringLiteral("ttyA"));
        tool.window.slotNewPortList({});
        QCOMPARE(ports->count(), 0);
    }

    void offeredPortsAppearInTheList()
    {
        WindowUnderTest tool;
        tool.window.offerPorts({"zz-offered", "/dev/aa-offered"});
        auto *ports = tool.get<QComboBox>("comboBoxPort");
        QTRY_VERIFY(ports->findText("zz-offered") >= 0);
        QVERIFY(ports->findText("/dev/aa-offered") >= 0);
        QVERIFY(ports->findText("/dev/aa-offered") < ports->findText("zz-offered"));
    }

    void withoutPortsTheButtonDoesNothingVisible()
    {
        CapturedDiagnostics lines;
        WindowUnderTest tool;
        QVERIFY(!tool.connectTo(QString()));
        QCOMPARE(tool.get<QPushButton>("btConnectDisconnect")->text(), QStringLiteral("Connect"));
        QVERIFY(!tool.busy());
        QCOMPARE(lines.out(), QStringLiteral("SerialConnection::closeSerialPort()\n"));
        QVERIFY(lines.err().isEmpty());
    }

    void connectingAsksForTheIdentityAndEnablesTheForm()
    {
        CapturedDiagnostics lines;
        CameraEnd camera;
        WindowUnderTest tool;
        QVERIFY(tool.connectTo(camera.path()));
        QVERIFY(tool.busy());
        // length 16, part 1 of 1, command 116, CRC, trailer
        const QByteArray request = reference::frame(116, {});
        QTRY_COMPARE(camera.received(), request);
        for (const char *name :
             {"pbLivePreview", "btnReadConf", "btnSetConf", "gbGPSStream", "tab_liveview"})
            QVERIFY2(tool.widget(name)->isEnabledTo(&tool.window), name);
        QVERIFY(tool.window.findChild<QWidget *>("LiveEdit")->isEnabled());
        QVERIFY(tool.window.findChild<QWidget *>("sbusTester")->isEnabled());
    }

    void disconnectingLeavesTheLiveViewEnabled()
    {
        CapturedDiagnostics lines;
        CameraEnd camera;
        WindowUnderTest tool;
        QVERIFY(tool.connectTo(camera.path()));
        lines.clear();
        tool.get<QPushButton>("btConnectDisconnect")->click();
        QCOMPARE(tool.get<QPushButton>("btConnectDisconnect")->text(), QStringLiteral("Connect"));
        QVERIFY(!tool.busy());
        for (const char *name : {"pbLivePreview", "btnReadConf", "btnSetConf", "gbGPSStream"})
            QVERIFY2(!tool.widget(name)->isEnabledTo(&tool.window), name);
        QVERIFY(tool.widget("tab_liveview")->isEnabledTo(&tool.window));
        QVERIFY(!tool.window.findChild<QWidget *>("LiveEdit")->isEnabled());
        QVERIFY(tool.window.findChild<QWidget *>("FactorySettings")->isEnabled());
        QVERIFY(!tool.window.findChild<QWidget *>("sbusTester")->isEnabled());
        QCOMPARE(lines.out(), QStringLiteral("SerialConnection::closeSerialPort()\n<<< close()\n"
                                             "<<< serial interface closed\n"));
    }

    void unpluggingDisconnects()
    {
        CapturedDiagnostics lines;
        CameraEnd camera;
        WindowUnderTest tool;
        QVERIFY(tool.connectTo(camera.path()));
        QTRY_COMPARE(camera.count(116), 1);
        camera.hangUp();
        QTRY_COMPARE(tool.get<QPushButton>("btConnectDisconnect")->text(),
                     QStringLiteral("Connect"));
        QVERIFY(!tool.busy());
        QVERIFY(!tool.widget("btnSetConf")->isEnabled());
        QVERIFY(tool.widget("tab_liveview")->isEnabled());
    }

    void vanishingUnderTheIdentityRequestLeavesTheFormDisconnected()
    {
        CapturedDiagnostics lines;
        CameraEnd camera;
        WindowUnderTest tool;
        const Unplugger unplugger(camera, tool);
        QVERIFY(!tool.connectTo(camera.path()));
        QVERIFY(unplugger.done());
        // The write itself has closed the form: no event loop has run since.
        QVERIFY(lines.out().endsWith("<<< serial interface closed\n"));
        QCOMPARE(lines.out().count("SerialConnection::closeSerialPort()\n"), 1);
        QVERIFY(followersEnabled(tool, false));
        QVERIFY(!tool.busy());
    }

    void connectionIsTakenFromThePortNotFromTheSignal()
    {
        CapturedDiagnostics lines;
        CameraEnd camera;
        WindowUnderTest tool;
        tool.window.slotPortConnectionChanged(true);
        QCOMPARE(tool.get<QPushButton>("btConnectDisconnect")->text(), QStringLiteral("Connect"));
        QVERIFY(!tool.busy());
        QVERIFY(followersEnabled(tool, false));
        QVERIFY(!tool.widget("tab_liveview")->isEnabledTo(&tool.window));
        QCOMPARE(lines.out() + lines.err(), QString()); // a request would be refused with a line

        QVERIFY(tool.connectTo(camera.path()));
        tool.window.slotPortConnectionChanged(false);
        QCOMPARE(tool.get<QPushButton>("btConnectDisconnect")->text(),
                 QStringLiteral("Disconnect"));
        QVERIFY(followersEnabled(tool, true));
        QTRY_COMPARE(camera.commands(), (QVector<quint32>{116, 116}));
    }

    void connectOpensTheSelectedPort()
    {
        CapturedDiagnostics lines;
        CameraEnd first;
        CameraEnd second;
        WindowUnderTest tool;
        tool.window.slotNewPortList({first.path(), second.path()});
        tool.get<QComboBox>("comboBoxPort")->setCurrentIndex(1);
        tool.get<QPushButton>("btConnectDisconnect")->click();
        QTRY_COMPARE(second.commands(), QVector<quint32>{116});
        QCOMPARE(first.received(), QByteArray());
    }

    void companionsGoBeforeTheForm()
    {
        QStringList gone;
        {
            WindowUnderTest tool;
            for (const char *name : {"centralWidget", "sbusTester", "LiveEdit", "FactorySettings"})
                connect(tool.widget(name), &QObject::destroyed, this,
                        [&gone, name] { gone << name; });
        }
        QCOMPARE(gone, QStringList({"FactorySettings", "LiveEdit", "sbusTester", "centralWidget"}));
    }

    void refusedPortLeavesTheFormDisconnected()
    {
        CapturedDiagnostics lines;
        WindowUnderTest tool;
        QVERIFY(!tool.connectTo(QStringLiteral("/dev/no-such-camera")));
        QVERIFY(!tool.busy());
        QVERIFY(lines.out().endsWith(QStringLiteral("SerialConnection::slotSerialPortError(1)\n"
                                                    "<<< failed to open serial connection\n")));
    }

    void nameOfARefusedPortStaysOneLine()
    {
        CapturedDiagnostics lines;
        WindowUnderTest tool;
        QVERIFY(!tool.connectTo(QStringLiteral("x\ny")));
        QCOMPARE(tool.window.statusBar()->currentMessage(),
                 QStringLiteral("Cannot open x\\x0ay: no such device. Plug the camera in again."));
    }

    void factoryButtonsShowOnDemand()
    {
        WindowUnderTest tool;
        tool.window.showFactoryButtons();
        QVERIFY(!tool.hidden("pbFactorySettings"));
        QVERIFY(!tool.hidden("pb_TestWindow"));
    }

    void menusDoNotClearTheStatusBar()
    {
        WindowUnderTest tool;
        QStatusTipEvent empty{QString()};
        QCoreApplication::sendEvent(&tool.window, &empty);
        QCOMPARE(tool.window.statusBar()->currentMessage(), QStringLiteral("KoVo"));
    }
};

QTEST_MAIN(TestMainWindowWiring)
#include "tst_mainwindow_wiring.moc"
