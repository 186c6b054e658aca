#include "support/cameraend.h"
#include "support/captureddiagnostics.h"
#include "support/modal.h"
#include "support/records.h"
#include "support/windowundertest.h"

#include <QAbstractItemView>
#include <QCheckBox>
#include <QSet>
#include <QSignalSpy>
#include <QStatusBar>

namespace {

constexpr quint32 blendKey = 0xC92A6CE6;
constexpr quint32 zoomKey = 0xA0AF139E;
constexpr quint32 qx20Key = 0xA0AF139F;

const QString unnecessaryCall =
    QStringLiteral("KovoDevices::setDevice() >> unnecessary call to this function\n");
const QString softwareOutdated =
    QStringLiteral("This software tool is outdated.\n Please download a new version of this "
                   "software at\nhttps://www.quorvix.example/download.");
const QString firmwareOutdated =
    QStringLiteral("The device firmware is outdated.\n Please update the device firmware.");

/// Every widget that comes and goes with the model.
const QSet<QString> modelWidgets = {"gb_pheriphery_externalshutter",
                                    "gb_pheriphery_externalshutteroptions",
                                    "comboBoxPort",
                                    "btConnectDisconnect",
                                    "gbSonyFCBCameraAdjustements",
                                    "gbSonyFCBFocus",
                                    "gbTamronFocus",
                                    "gbSonyFCBZoom",
                                    "gbTamronVibrationCompensation",
                                    "gbTamronZoom",
                                    "gb_videoMode",
                                    "gb_hdmivideoMode",
                                    "gb_compressionQuality",
                                    "gb_compressionQuality_slider",
                                    "gbImageOutput",
                                    "gbSyncMode",
                                    "gbSbusConnectionOptions",
                                    "gbTestModes",
                                    "gb_exp_uart",
                                    "gb_vlc_ae",
                                    "cbSbusZoom",
                                    "cbSbusZoomMode",
                                    "label_sbuschannel_zoom",
                                    "label_sbuschannel_zoommode",
                                    "label_sbuschannel_viewmode_switcthmode",
                                    "cbSbusViewModeSwitchMode",
                                    "label_sbus_Overlay",
                                    "cbSbusOverlay"};

const QSet<QString> blendWidgets = {"comboBoxPort",
                                    "btConnectDisconnect",
                                    "gb_pheriphery_externalshutter",
                                    "label_sbus_Overlay",
                                    "cbSbusOverlay",
                                    "gbSonyFCBCameraAdjustements",
                                    "gbSonyFCBFocus",
                                    "label_sbuschannel_viewmode_switcthmode",
                                    "cbSbusViewModeSwitchMode"};

const QSet<QString> zoomWidgets = {"comboBoxPort",
                                   "gb_pheriphery_externalshutter",
                                   "btConnectDisconnect",
                                   "gbTamronFocus",
                                   "gbTamronVibrationCompensation",
                                   "gbTamronZoom",
                                   "gb_videoMode",
                                   "gb_hdmivideoMode",
                                   "gb_compressionQuality_slider",
                                   "gbImageOutput",
                                   "gbSyncMode",
                                   "gbSbusConnectionOptions",
                                   "gbTestModes",
                                   "cbSbusZoom",
                                   "cbSbusZoomMode",
                                   "label_sbuschannel_zoom",
                                   "label_sbuschannel_zoommode",
                                   "gb_vlc_ae"};

const QStringList blendExt0 = {"EXP_MODE_NONE", "EXP0_MODE_EXTERNAL_SHUTTER"};
const QStringList blendExt1 = {"EXP_MODE_NONE", "EXP1_MODE_EXTERNAL_SHUTTER"};
const QStringList zoomExt0 = {"EXP_MODE_NONE",   "EXP0_MODE_FFC",   "EXP0_MODE_IMAGE_SYNC",
                              "EXP0_MODE_COMIO", "EXP0_MODE_VISCA", "EXP0_MODE_EXTERNAL_SHUTTER"};
const QStringList zoomExt1 = {"EXP_MODE_NONE", "EXP1_MODE_EXTERNAL_SYNC_INPUT", "EXP1_MODE_COMIO",
                              "EXP1_MODE_VISCA", "EXP1_MODE_EXTERNAL_SHUTTER"};

} // namespace

/// The window on the screen, with its diagnostics and perhaps a camera that the test plays.
class Tool : public WindowUnderTest
{
public:
    Tool() { window.show(); }

    QSet<QString> shownModelWidgets()
    {
        QSet<QString> shown;
        for (const QString &name : modelWidgets)
            if (!widget(qPrintable(name))->isHidden())
                shown << name;
        return shown;
    }

    /// All widgets of the form that are hidden and none of the model's.
    QSet<QString> otherHiddenWidgets()
    {
        QSet<QString> hidden;
        for (const QWidget *child : window.centralWidget()->findChildren<QWidget *>())
            if (child->isHidden() && !child->objectName().startsWith("qt_") &&
                !child->objectName().isEmpty() && !modelWidgets.contains(child->objectName()) &&
                !pageNames.contains(child->objectName()))
                hidden << child->objectName();
        return hidden;
    }

    QStringList items(const char *name)
    {
        const auto *box = get<QComboBox>(name);
        QStringList texts;
        for (int i = 0; i < box->count(); ++i)
            texts << box->itemText(i);
        return texts;
    }

    int deviceIndex() { return get<QComboBox>("cBDevice")->currentIndex(); }
    QString status() const { return window.statusBar()->currentMessage(); }
    bool connected()
    {
        return get<QPushButton>("btConnectDisconnect")->text() == QLatin1String("Disconnect");
    }

    CapturedDiagnostics lines;

private:
    /// Of the pages, a tab widget hides all but one.
    const QSet<QString> pageNames = {"tab_5", "tab_4",        "tabSerial", "tab_SBUS",
                                     "tab_3", "tab_liveview", "tabVLC",    "tab_2"};
};

/// The operator's pick of the item that is shown already: opens the list and takes it.
static void pickShownItem(QComboBox *box)
{
    box->showPopup();
    QTest::keyClick(box->view(), Qt::Key_Return);
}

class TestMainWindowIdentity : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { modal::useQtDialogs(); }

    // --- the form of a model

    void formShowsExactlyTheWidgetsOfTheModel_data()
    {
        QTest::addColumn<quint32>("key");
        QTest::addColumn<QSet<QString>>("shown");
        QTest::addColumn<QStringList>("ext0");
        QTest::addColumn<QStringList>("ext1");
        QTest::addColumn<int>("index");
        QTest::newRow("Blend") << blendKey << blendWidgets << blendExt0 << blendExt1 << 0;
        QTest::newRow("Blend Zoom") << zoomKey << zoomWidgets << zoomExt0 << zoomExt1 << 1;
    }
    void formShowsExactlyTheWidgetsOfTheModel()
    {
        QFETCH(quint32, key);
        QFETCH(QSet<QString>, shown);
        Tool tool;
        const QSet<QString> others = tool.otherHiddenWidgets();
        QVERIFY(tool.chooseModel(key));
        QCOMPARE(tool.shownModelWidgets(), shown);
        QCOMPARE(tool.otherHiddenWidgets(), others);
        QTEST(tool.items("cBext0mode"), "ext0");
        QTEST(tool.items("cBext1mode"), "ext1");
        QCOMPARE(tool.get<QComboBox>("cBext0mode")->currentIndex(), 0);
        QTEST(tool.deviceIndex(), "index");
        QVERIFY(!tool.get<QComboBox>("cBext0mode")->itemData(1).isValid());
    }

    void switchingBackAndForthLeavesNothingBehind()
    {
        Tool tool;
        for (int round = 0; round < 2; ++round) {
            QVERIFY(tool.chooseModel(blendKey));
            QCOMPARE(tool.shownModelWidgets(), blendWidgets);
            QCOMPARE(tool.items("cBext0mode"), blendExt0);
            QCOMPARE(tool.items("cBext1mode"), blendExt1);
            QCOMPARE(tool.deviceIndex(), 0);
            QVERIFY(tool.chooseModel(zoomKey));
            QCOMPARE(tool.shownModelWidgets(), zoomWidgets);
            QCOMPARE(tool.items("cBext0mode"), zoomExt0);
            QCOMPARE(tool.items("cBext1mode"), zoomExt1);
            QCOMPARE(tool.deviceIndex(), 1);
        }
    }

    void extensionListsAreEmptyUntilAModelIsKnown()
    {
        Tool tool;
        QVERIFY(tool.items("cBext0mode").isEmpty());
        QVERIFY(tool.items("cBext1mode").isEmpty());
        QCOMPARE(tool.deviceIndex(), 0);
    }

    void shutterOptionsFollowTheInstalledShutter_data()
    {
        QTest::addColumn<quint32>("key");
        QTest::addColumn<bool>("installed");
        QTest::newRow("Blend, installed") << blendKey << true;
        QTest::newRow("Blend, not installed") << blendKey << false;
        QTest::newRow("Blend Zoom, installed") << zoomKey << true;
        QTest::newRow("Blend Zoom, not installed") << zoomKey << false;
    }
    void shutterOptionsFollowTheInstalledShutter()
    {
        QFETCH(quint32, key);
        QFETCH(bool, installed);
        Tool tool;
        tool.get<QCheckBox>("cb_pheriphery_externalshutter_installed")->setChecked(installed);
        QVERIFY(tool.chooseModel(key));
        QWidget *options = tool.widget("gb_pheriphery_externalshutteroptions");
        QCOMPARE(options->isHidden(), !installed);
        QCOMPARE(options->isEnabledTo(&tool.window), installed);
        QVERIFY(tool.chooseModel(key == zoomKey ? blendKey : zoomKey));
        QCOMPARE(options->isHidden(), !installed);
        QCOMPARE(options->isEnabledTo(&tool.window), installed);
        tool.chooseModel(qx20Key);
        QVERIFY(options->isHidden());
    }

    void modelFromTheFormIsLaidOutTwice()
    {
        // The slot announces the model and runs again inside its own announcement. The second pass
        // finds the model set. The Blend's item is the current one: nothing else asks.
        Tool tool;
        QVERIFY(tool.chooseModel(blendKey));
        QCOMPARE(tool.lines.err(), unnecessaryCall);
        QCOMPARE(tool.lines.out(), QStringLiteral("<<< QX Blend\n<<< QX Blend\n"));
    }

    void modelThatMovesTheListAsksOnceMore()
    {
        Tool tool;
        QVERIFY(tool.chooseModel(zoomKey));
        QCOMPARE(tool.lines.err(), unnecessaryCall + unnecessaryCall);
        QCOMPARE(tool.lines.out(), QStringLiteral("<<< QX Blend Zoom\n<<< QX Blend Zoom\n"));
        QCOMPARE(tool.deviceIndex(), 1);
        tool.lines.clear();
        QVERIFY(tool.chooseModel(blendKey));
        QCOMPARE(tool.lines.err(), unnecessaryCall + unnecessaryCall);
        QCOMPARE(tool.deviceIndex(), 0);
    }

    void sameModelAgainIsLaidOutOnce()
    {
        Tool tool;
        QVERIFY(tool.chooseModel(zoomKey));
        tool.widget("gbTestModes")->hide();
        tool.lines.clear();
        QVERIFY(tool.chooseModel(zoomKey));
        QCOMPARE(tool.lines.err(), unnecessaryCall);
        QCOMPARE(tool.lines.out(), QStringLiteral("<<< QX Blend Zoom\n"));
        QCOMPARE(tool.shownModelWidgets(), zoomWidgets);
        QCOMPARE(tool.items("cBext0mode"), zoomExt0);
    }

    void quorvix20HidesEverythingAndFails()
    {
        Tool tool;
        QVERIFY(tool.chooseModel(zoomKey));
        tool.lines.clear();
        QVERIFY(!tool.chooseModel(qx20Key));
        QVERIFY(tool.shownModelWidgets().isEmpty());
        QVERIFY(tool.items("cBext0mode").isEmpty());
        QVERIFY(tool.items("cBext1mode").isEmpty());
        QCOMPARE(tool.deviceIndex(), 1);
        const QString pass = QStringLiteral("<<< QX 2.0 not implemeted (2695828383)\n"
                                            "<<< not a valid device\n"
                                            "<< Device not implemented: false\n");
        // The factory settings hear of the model between the two passes.
        QCOMPARE(
            tool.lines.err(),
            unnecessaryCall + pass +
                QStringLiteral("FactorySettings::slotDeviceChanged() Device not implemented\n") +
                pass);
        QVERIFY(tool.lines.out().isEmpty());
        QVERIFY(tool.chooseModel(zoomKey));
        QCOMPARE(tool.shownModelWidgets(), zoomWidgets);
    }

    void unknownKeyLeavesTheForm_data()
    {
        QTest::addColumn<quint32>("key");
        QTest::newRow("0") << 0U;
        QTest::newRow("below") << 0xA0AF139DU;
        QTest::newRow("above") << 0xA0AF13A0U;
    }
    void unknownKeyLeavesTheForm()
    {
        QFETCH(quint32, key);
        Tool tool;
        QVERIFY(tool.chooseModel(zoomKey));
        tool.lines.clear();
        QVERIFY(!tool.chooseModel(key));
        QCOMPARE(tool.lines.err(), QStringLiteral("<<< not a valid device id\n"));
        QCOMPARE(tool.shownModelWidgets(), zoomWidgets);
        QCOMPARE(tool.items("cBext1mode"), zoomExt1);
        QCOMPARE(tool.deviceIndex(), 1);
    }

    // --- the list of models

    void pickingTheOtherModelLaysItOutOnce()
    {
        Tool tool;
        auto *list = tool.get<QComboBox>("cBDevice");
        QSignalSpy activated(list, SIGNAL(activated(int)));
        QTest::keyClick(list, Qt::Key_Down); // changes the text and activates the item
        QCOMPARE(activated.count(), 1);
        QCOMPARE(tool.shownModelWidgets(), zoomWidgets);
        QCOMPARE(tool.lines.out(), QStringLiteral("<<< QX Blend Zoom\n"));
        QCOMPARE(tool.lines.err(), unnecessaryCall);
        tool.lines.clear();
        QTest::keyClick(list, Qt::Key_Up);
        QCOMPARE(tool.shownModelWidgets(), blendWidgets);
        QCOMPARE(tool.lines.out(), QStringLiteral("<<< QX Blend\n"));
        QCOMPARE(tool.lines.err(), unnecessaryCall);
    }

    void pickingTheShownModelChoosesItOnce()
    {
        Tool tool;
        auto *list = tool.get<QComboBox>("cBDevice");
        QSignalSpy activated(list, SIGNAL(activated(int)));
        pickShownItem(list);
        QTRY_COMPARE(activated.count(), 1);
        QCOMPARE(tool.shownModelWidgets(), blendWidgets);
        QCOMPARE(tool.lines.err(), unnecessaryCall);
        tool.lines.clear();
        pickShownItem(list); // the active device already
        QTRY_COMPARE(activated.count(), 2);
        QVERIFY(tool.lines.err().isEmpty());
        QVERIFY(tool.lines.out().isEmpty());
    }

    void modelsAreKnownByTheirLongNames_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<bool>("known");
        QTest::addColumn<QSet<QString>>("shown");
        QTest::newRow("Blend") << "Quorvix Blend" << true << blendWidgets;
        QTest::newRow("Blend in lower case") << "quorvix blend" << true << blendWidgets;
        QTest::newRow("Blend Zoom") << "Quorvix Blend Zoom" << true << zoomWidgets;
        QTest::newRow("Blend Zoom in upper case") << "QUORVIX BLEND ZOOM" << true << zoomWidgets;
        QTest::newRow("2.0") << "Quorvix 2.0" << true << QSet<QString>();
    }
    void modelsAreKnownByTheirLongNames()
    {
        QFETCH(QString, name);
        Tool tool;
        bool result = false;
        QVERIFY(QMetaObject::invokeMethod(&tool.window, "changeDeviceName",
                                          Q_RETURN_ARG(bool, result), Q_ARG(QString, name)));
        QTEST(result, "known");
        QTEST(tool.shownModelWidgets(), "shown");
        QVERIFY(tool.lines.err().startsWith(unnecessaryCall));
    }

    void otherNamesAreRefused_data()
    {
        QTest::addColumn<QString>("name");
        QTest::newRow("a short name") << "QX Blend";
        QTest::newRow("empty") << "";
        QTest::newRow("longer") << "Quorvix Blend Zoom ";
    }
    void otherNamesAreRefused()
    {
        QFETCH(QString, name);
        Tool tool;
        const QSet<QString> before = tool.shownModelWidgets();
        QVERIFY(!tool.window.changeDeviceName(name));
        QCOMPARE(tool.lines.err(), QStringLiteral("<< Device not implemented: %1\n").arg(name));
        QCOMPARE(tool.shownModelWidgets(), before);
    }

    void changeByKeyIsObsolete()
    {
        Tool tool;
        bool result = true;
        QVERIFY(QMetaObject::invokeMethod(&tool.window, "changeDeviceCRC",
                                          Q_RETURN_ARG(bool, result),
                                          Q_ARG(unsigned int, blendKey)));
        QVERIFY(!result);
        QCOMPARE(
            tool.lines.err(),
            QStringLiteral("MainWindow::changeDeviceCRC() was replaced by slotDeviceChanged()\n"));
    }

    void parsingASerialNumberDoesNothing()
    {
        Tool tool;
        QVERIFY(QMetaObject::invokeMethod(
            &tool.window, "parseSerial", Q_ARG(QVector<unsigned char>, QVector<unsigned char>(2))));
        QVERIFY(tool.lines.err().isEmpty() && tool.lines.out().isEmpty());
    }

    // --- identity replies

    void identityDrivesFormStatusAndRequest_data()
    {
        QTest::addColumn<quint32>("key");
        QTest::addColumn<quint32>("firmware");
        QTest::addColumn<QString>("status");
        QTest::addColumn<QSet<QString>>("shown");
        QTest::newRow("Blend, oldest firmware that will do")
            << blendKey << 20170807U << "Device ID: QX Blend   Serial: 1701234" << blendWidgets;
        QTest::newRow("Blend Zoom, oldest firmware that will do")
            << zoomKey << 20180122U << "Device ID: QX Blend Zoom   Serial: 1701234" << zoomWidgets;
        QTest::newRow("the date is unsigned")
            << zoomKey << 0xFFFFFFFFU << "Device ID: QX Blend Zoom   Serial: 1701234"
            << zoomWidgets;
    }
    void identityDrivesFormStatusAndRequest()
    {
        QFETCH(quint32, key);
        QFETCH(quint32, firmware);
        Tool tool;
        CameraEnd camera;
        QVERIFY(tool.connectTo(camera.path()));
        QTRY_COMPARE(camera.count(116), 1);
        camera.send(216, CameraEnd::identity(key, firmware));
        // One request, after the form and without a box.
        QTRY_COMPARE(camera.commands(), (QVector<quint32>{116, 102}));
        QVERIFY(camera.last(102).isEmpty());
        QTEST(tool.status(), "status");
        QTEST(tool.shownModelWidgets(), "shown");
        QVERIFY(tool.busy());
        QVERIFY(!tool.lines.out().contains("firmwaredate"));
        QTRY_VERIFY(tool.lines.out().endsWith("\n\n"));
        QCOMPARE(camera.commands(), (QVector<quint32>{116, 102}));
    }

    void identityOfTheActiveDeviceLeavesTheForm()
    {
        Tool tool;
        CameraEnd camera;
        QVERIFY(tool.chooseModel(zoomKey));
        QVERIFY(tool.connectTo(camera.path()));
        tool.widget("gbTestModes")->hide();
        tool.lines.clear();
        camera.send(216, CameraEnd::identity(zoomKey));
        QTRY_COMPARE(camera.count(102), 1);
        QVERIFY(tool.hidden("gbTestModes"));              // not laid out again
        QCOMPARE(tool.lines.out(), QStringLiteral("\n")); // and no name is looked up aloud
        QVERIFY(!tool.lines.err().contains("setDevice"));
    }

    void otherCameraOnTheLineChangesTheModel()
    {
        Tool tool;
        CameraEnd camera;
        QVERIFY(tool.chooseModel(blendKey));
        QVERIFY(tool.connectTo(camera.path()));
        camera.send(216, CameraEnd::identity(zoomKey));
        QTRY_COMPARE(tool.shownModelWidgets(), zoomWidgets);
        QCOMPARE(tool.deviceIndex(), 1);
    }

    void serialNumberEndsAtItsZeroByte_data()
    {
        QTest::addColumn<QByteArray>("payload");
        QTest::addColumn<QString>("serial");
        QTest::addColumn<int>("errors");
        const QByteArray head = CameraEnd::identity(blendKey).left(8);
        QTest::newRow("terminated") << head + QByteArray("AB-12\0xy", 8) << "AB-12" << 0;
        QTest::newRow("empty") << head + QByteArray(4, '\0') << "" << 0;
        QTest::newRow("cut at the payload's end") << head + QByteArray("1234") << "1234" << 1;
        QTest::newRow("none at all") << head << "" << 1;
    }
    void serialNumberEndsAtItsZeroByte()
    {
        QFETCH(QByteArray, payload);
        QFETCH(QString, serial);
        Tool tool;
        QVERIFY(tool.chooseModel(blendKey));
        tool.lines.clear();
        tool.window.parseDeviceID(records::payload(payload));
        QCOMPARE(tool.status(), QStringLiteral("Device ID: QX Blend   Serial: ") + serial);
        QTEST(tool.lines.err().count('\n'), "errors");
    }

    void foreignIdentityIsRefused()
    {
        Tool tool;
        CameraEnd camera;
        QVERIFY(tool.connectTo(camera.path()));
        const QSet<QString> before = tool.shownModelWidgets();
        camera.send(216, CameraEnd::identity(0xA0AF139D));
        QTRY_VERIFY(tool.lines.out().endsWith("\n"));
        QVERIFY(tool.lines.err().endsWith("<<< not a valid device id\n"
                                          "MainWindow::parseDeviceID() <<< Not a valid device.\n"));
        QCOMPARE(tool.status(), QStringLiteral("KoVo"));
        QCOMPARE(tool.shownModelWidgets(), before);
        QVERIFY(!tool.busy());
        QVERIFY(tool.connected());
        QTRY_COMPARE(camera.commands(), QVector<quint32>{116});
    }

    void shortIdentityIsRefused()
    {
        const QByteArray whole = CameraEnd::identity(blendKey);
        for (int size = 0; size < 8; ++size) {
            Tool tool;
            tool.window.parseDeviceID(records::payload(whole.left(size)));
            QCOMPARE(tool.lines.err().count('\n'), 1);
            QVERIFY(tool.lines.out().isEmpty());
            QCOMPARE(tool.status(), QStringLiteral("KoVo"));
        }
    }

    void identityOfThe20IsLaidOutAndLeftThere()
    {
        Tool tool;
        CameraEnd camera;
        QVERIFY(tool.connectTo(camera.path()));
        QTRY_COMPARE(camera.count(116), 1);
        camera.send(216, CameraEnd::identity(qx20Key));
        QTRY_COMPARE(tool.lines.out(), QStringLiteral("\n"));
        QVERIFY(tool.lines.err().endsWith(
            "<<< MainWindow::parseDeviceID() could not parse struct, unknown device\n"));
        QVERIFY(tool.shownModelWidgets().isEmpty());
        QCOMPARE(tool.status(), QStringLiteral("KoVo"));
        QCOMPARE(camera.commands(), QVector<quint32>{116});
        QVERIFY(!tool.busy());
    }

    // --- the age of the firmware

    void oldFirmwareShowsABox_data()
    {
        QTest::addColumn<quint32>("key");
        QTest::addColumn<quint32>("firmware");
        QTest::addColumn<QString>("text");
        QTest::newRow("Blend")
            << blendKey << 20170806U
            << "<p>Outdated firmware detected.<br>Please update the firmware.</p>";
        QTest::newRow("Blend Zoom")
            << zoomKey << 20180121U
            << "<p>Outdated firmware detected.<br>Please update to firmware 1.4.x.</p>";
        QTest::newRow("Blend Zoom with what a Blend may have")
            << zoomKey << 20170807U
            << "<p>Outdated firmware detected.<br>Please update to firmware 1.4.x.</p>";
    }
    void oldFirmwareShowsABox()
    {
        QFETCH(quint32, key);
        QFETCH(quint32, firmware);
        QFETCH(QString, text);
        Tool tool;
        CameraEnd camera;
        QVERIFY(tool.connectTo(camera.path()));
        QString title, body, status;
        QMessageBox::Icon icon = QMessageBox::NoIcon;
        QMessageBox::StandardButtons buttons;
        bool okIsDefault = false;
        Qt::WindowFlags flags;
        int requests = -1;
        modal::Answer<QMessageBox> answer([&](QMessageBox *box) {
            title = box->windowTitle();
            body = box->text();
            icon = box->icon();
            buttons = box->standardButtons();
            okIsDefault = box->defaultButton() == box->button(QMessageBox::Ok);
            flags = box->windowFlags();
            status = tool.status();
            requests = camera.count(102);
            box->button(QMessageBox::Ok)->click();
        });
        camera.send(216, CameraEnd::identity(key, firmware));
        QTRY_COMPARE(camera.count(102), 1);
        QVERIFY(answer.given());
        QCOMPARE(title, QStringLiteral("Firmware outdated"));
        QCOMPARE(body, text);
        QCOMPARE(icon, QMessageBox::Warning);
        QCOMPARE(buttons, QMessageBox::StandardButtons(QMessageBox::Ok));
        QVERIFY(okIsDefault);
        // Qt adds the system menu to what it shows; the close button it does not.
        QCOMPARE(flags & ~Qt::WindowSystemMenuHint, Qt::Dialog | Qt::WindowTitleHint);
        QVERIFY(status.startsWith("Device ID: ")); // shown before the box
        QCOMPARE(requests, 0);                     // sent after it
        QVERIFY(tool.lines.out().contains("<<< firmwaredate is to old\n"));
        QVERIFY(!tool.lines.out().contains("<<< dialog rejected"));
    }

    void closedFirmwareBoxStillRequestsTheConfiguration()
    {
        Tool tool;
        CameraEnd camera;
        QVERIFY(tool.chooseModel(blendKey));
        QVERIFY(tool.connectTo(camera.path()));
        tool.lines.clear();
        modal::Answer<QMessageBox> answer(modal::cancel<QMessageBox>());
        camera.send(216, CameraEnd::identity(blendKey, 20170806));
        QTRY_COMPARE(camera.count(102), 1);
        QCOMPARE(tool.lines.out(), QStringLiteral("<<< firmwaredate is to old\n"
                                                  "<<< dialog rejected\n\n"));
    }

    void firmwareCheckTellsItsResult()
    {
        Tool tool;
        QVERIFY(!tool.window.checkFirmwareDate(20200101));
        QCOMPARE(tool.lines.err(),
                 QStringLiteral("MainWindow::checkFirmwareDate() Device unknown\n"));
        tool.chooseModel(qx20Key);
        tool.lines.clear();
        QVERIFY(!tool.window.checkFirmwareDate(20200101));
        QCOMPARE(tool.lines.err(),
                 QStringLiteral("MainWindow::checkFirmwareDate() Device unknown\n"));

        QVERIFY(tool.chooseModel(zoomKey));
        tool.lines.clear();
        QVERIFY(tool.window.checkFirmwareDate(20180122));
        QVERIFY(tool.lines.out().isEmpty());
        {
            modal::Answer<QMessageBox> answer(modal::click(QMessageBox::Ok));
            QVERIFY(tool.window.checkFirmwareDate(20180121));
        }
        QCOMPARE(tool.lines.out(), QStringLiteral("<<< firmwaredate is to old\n"));
        {
            modal::Answer<QMessageBox> answer(modal::cancel<QMessageBox>());
            QVERIFY(!tool.window.checkFirmwareDate(0));
        }
        QVERIFY(tool.lines.out().endsWith("<<< dialog rejected\n"));
        QVERIFY(tool.lines.err().isEmpty());
    }

    // --- records

    void validRecordFillsTheForm_data()
    {
        QTest::addColumn<QByteArray>("record");
        QTest::addColumn<int>("colourMapOffset");
        QTest::newRow("Blend") << records::blend() << 57;
        QTest::newRow("Blend Zoom") << records::blendZoom() << 59;
    }
    void validRecordFillsTheForm()
    {
        QFETCH(QByteArray, record);
        QFETCH(int, colourMapOffset);
        Tool tool;
        record[colourMapOffset] = 2;
        const QByteArray sealed = records::sealed(record);
        QVERIFY(tool.window.parseUnknownControlStruct(records::payload(sealed)));
        QCOMPARE(tool.get<QComboBox>("cbLiveview_colormap")->currentIndex(), 2);
        record[colourMapOffset] = 1;
        // As it comes from the line, with padding.
        QVERIFY(tool.window.parseUnknownControlStruct(
            records::payload(records::sealed(record) + '\xEE')));
        QCOMPARE(tool.get<QComboBox>("cbLiveview_colormap")->currentIndex(), 1);
        QVERIFY(!tool.lines.err().contains("not a valid struct"));
    }

    void invalidRecordClosesThePortAndLeavesTheForm_data()
    {
        QTest::addColumn<QByteArray>("record");
        QTest::addColumn<QString>("out");
        QTest::addColumn<QString>("err");
        QTest::addColumn<QString>("box");
        const auto with = [](QByteArray record, int offset, quint32 number) {
            records::put<quint32>(record, offset, number);
            record[57] = 3;
            record[59] = 3;
            return records::sealed(record);
        };
        const QByteArray blend = records::blend(), zoom = records::blendZoom();
        const QString blendVersion =
            QStringLiteral("KovoDevices::isValidControlStruct unknown control struct version\n");
        const QString zoomVersion = QStringLiteral(
            "KovoDevices::isValidControlStruct() unsupported control struct version\n");
        const QString shown0 = QStringLiteral("KovoDevices::showDialog(0) ");
        const QString shown1 = QStringLiteral("KovoDevices::showDialog(1) ");

        QTest::newRow("unknown device")
            << with(blend, 0, 0xA0AF13A0) << ""
            << "<<< not a valid device id\n"
               "KovoDevices::isValidControlStruct() Device is not known\n"
            << "";
        QTest::newRow("Quorvix 2.0")
            << with(blend, 0, qx20Key) << ""
            << "KovoDevices::isValidControlStruct()  Device not implemented\n"
            << "";
        QTest::newRow("Blend, newer record")
            << with(blend, 8, 20181213) << shown1 << blendVersion << softwareOutdated;
        QTest::newRow("Blend, older record")
            << with(blend, 8, 20181211) << shown0 << blendVersion << firmwareOutdated;
        QTest::newRow("Blend Zoom, newer record")
            << with(zoom, 8, 20190806) << shown1 << zoomVersion << softwareOutdated;
        QTest::newRow("Blend Zoom, older record")
            << with(zoom, 8, 20190804) << shown0 << zoomVersion << firmwareOutdated;
        QTest::newRow("Blend, wrong length with the right CRC")
            << with(blend, 4, 192) << "<<< unknown data length 192 bytes\n<<< Expected: 193 bytes\n"
            << ""
            << "";
        QTest::newRow("Blend Zoom, wrong length with the right CRC")
            << with(zoom, 4, 210) << "<<< unknown data length 210 bytes\n<<< Expected: 209 bytes\n"
            << ""
            << "";
        QByteArray oneBit = with(blend, 4, 193);
        oneBit[206] = static_cast<char>(oneBit[206] ^ 0x40);
        QTest::newRow("Blend, one bit of the CRC")
            << oneBit << "KovoDevices::isValidControlStruct() CRC not OK\n"
            << ""
            << "";
        QByteArray body = with(zoom, 4, 209);
        body[100] = static_cast<char>(body[100] ^ 1);
        QTest::newRow("Blend Zoom, one bit of the body")
            << body << "KovoDevices::isValidControlStruct() CRC not OK\n"
            << ""
            << "";
    }
    void invalidRecordClosesThePortAndLeavesTheForm()
    {
        QFETCH(QByteArray, record);
        QFETCH(QString, out);
        QFETCH(QString, err);
        QFETCH(QString, box);
        Tool tool;
        CameraEnd camera;
        QVERIFY(tool.chooseModel(blendKey));
        QVERIFY(tool.connectTo(camera.path()));
        // The check of the first request comes before the record.
        QTRY_VERIFY(tool.lines.err().endsWith("Message was not send\n"));
        tool.lines.clear();

        QString shown, title;
        bool open = true;
        std::unique_ptr<modal::Answer<QMessageBox>> answer;
        if (!box.isEmpty())
            answer = std::make_unique<modal::Answer<QMessageBox>>([&](QMessageBox *found) {
                shown = found->text();
                open = tool.connected(); // still: the port closes after the box
                found->accept();
            });
        camera.send(202, record);
        QTRY_VERIFY(!tool.connected());
        QCOMPARE(shown, box);
        QVERIFY(open);
        QCOMPARE(tool.lines.err(),
                 err + "MainWindow::parseUnknownControlStruct() not a valid struct\n");
        QCOMPARE(tool.lines.out(), out + "SerialConnection::closeSerialPort()\n<<< close()\n"
                                         "<<< serial interface closed\n\n");
        QCOMPARE(tool.get<QComboBox>("cbLiveview_colormap")->currentIndex(), 0);
        QVERIFY(!tool.busy());
    }

    void invalidRecordWithoutAConnectionIsOnlyReported()
    {
        Tool tool;
        bool result = true;
        QVERIFY(QMetaObject::invokeMethod(
            &tool.window, "parseUnknownControlStruct", Q_RETURN_ARG(bool, result),
            Q_ARG(QVector<unsigned char>, records::payload(records::blend())))); // not sealed
        QVERIFY(!result);
        QCOMPARE(tool.lines.out(),
                 QStringLiteral("KovoDevices::isValidControlStruct() CRC not OK\n"));
        QCOMPARE(tool.lines.err(),
                 QStringLiteral("MainWindow::parseUnknownControlStruct() not a valid struct\n"));
    }

    void shortRecordsAreRefusedWhatTheyHold()
    {
        Tool tool;
        for (const QByteArray &whole :
             {records::sealed(records::blend()), records::sealed(records::blendZoom())}) {
            for (int size = 0; size < whole.size(); ++size) {
                tool.lines.clear();
                const QVector<unsigned char> record = records::payload(whole.left(size));
                QVERIFY2(!tool.window.parseUnknownControlStruct(record),
                         qPrintable(QString::number(size)));
                QCOMPARE(tool.lines.err().count('\n'), 2);
                QVERIFY(tool.lines.out().isEmpty());
            }
            QVERIFY(tool.window.parseUnknownControlStruct(records::payload(whole)));
        }
    }

    // --- requests

    void configurationIsRequestedOfTheBlendModels_data()
    {
        QTest::addColumn<quint32>("key");
        QTest::newRow("Blend") << blendKey;
        QTest::newRow("Blend Zoom") << zoomKey;
    }
    void configurationIsRequestedOfTheBlendModels()
    {
        QFETCH(quint32, key);
        Tool tool;
        CameraEnd camera;
        QVERIFY(tool.connectTo(camera.path()));
        tool.window.requestConfig(static_cast<KovoDeviceCRCKey_TypeDef>(key));
        QTRY_COMPARE(camera.received(), reference::frame(116, {}) + reference::frame(102, {}));
        QVERIFY(tool.busy());
    }

    void configurationOfOtherModelsIsNotRequested()
    {
        Tool tool;
        CameraEnd camera;
        QVERIFY(tool.connectTo(camera.path()));
        QTRY_VERIFY(tool.lines.err().endsWith("Message was not send\n"));
        tool.lines.clear();
        tool.window.requestConfig(KovoDevice_QX20);
        tool.window.requestConfig(static_cast<KovoDeviceCRCKey_TypeDef>(0));
        const QString line = QStringLiteral("MainWindow::requestConfig() DEVICE NOT IMPLEMENTED\n");
        QCOMPARE(tool.lines.err(), line + line);
        tool.window.slotSendPacket("end"); // whatever was sent before has arrived with it
        QTRY_COMPARE(camera.received(), reference::frame(116, {}) + "end");
    }
};

QTEST_MAIN(TestMainWindowIdentity)
#include "tst_mainwindow_identity.moc"
