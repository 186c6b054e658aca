#include "support/cameraend.h"
#include "support/modal.h"
#include "support/modelwindow.h"
#include "support/records.h"

#include <memory>

namespace {

const QString softwareOutdated =
    QStringLiteral("This software tool is outdated.\n Please download a new version of this "
                   "software at\nhttps://www.quorvix.example/download.");
const QString firmwareOutdated =
    QStringLiteral("The device firmware is outdated.\n Please update the device firmware.");

} // namespace

class TestMainWindowIdentity : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { modal::useQtDialogs(); }

    // --- identity replies

    void identityDrivesFormStatusAndRequest_data()
    {
        QTest::addColumn<quint32>("key");
        QTest::addColumn<quint32>("firmware");
        QTest::addColumn<QString>("status");
        QTest::addColumn<QSet<QString>>("shown");
        QTest::newRow("Blend, oldest firmware that will do")
            << keyBlend << 20170807U << "Device ID: QX Blend   Serial: 1701234" << blendWidgets;
        QTest::newRow("Blend Zoom, oldest firmware that will do")
            << keyBlendZoom << 20180122U << "Device ID: QX Blend Zoom   Serial: 1701234"
            << zoomWidgets;
        QTest::newRow("the date is unsigned")
            << keyBlendZoom << 0xFFFFFFFFU << "Device ID: QX Blend Zoom   Serial: 1701234"
            << zoomWidgets;
    }
    void identityDrivesFormStatusAndRequest()
    {
        QFETCH(quint32, key);
        QFETCH(quint32, firmware);
        ModelWindow tool;
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
        ModelWindow tool;
        CameraEnd camera;
        QVERIFY(tool.chooseModel(keyBlendZoom));
        QVERIFY(tool.connectTo(camera.path()));
        tool.widget("gbTestModes")->hide();
        tool.lines.clear();
        camera.send(216, CameraEnd::identity(keyBlendZoom));
        QTRY_COMPARE(camera.count(102), 1);
        QVERIFY(tool.hidden("gbTestModes"));              // not laid out again
        QCOMPARE(tool.lines.out(), QStringLiteral("\n")); // and no name is looked up aloud
        QVERIFY(!tool.lines.err().contains("setDevice"));
    }

    void otherCameraOnTheLineChangesTheModel()
    {
        ModelWindow tool;
        CameraEnd camera;
        QVERIFY(tool.chooseModel(keyBlend));
        QVERIFY(tool.connectTo(camera.path()));
        camera.send(216, CameraEnd::identity(keyBlendZoom));
        QTRY_COMPARE(tool.shownModelWidgets(), zoomWidgets);
        QCOMPARE(tool.deviceIndex(), 1);
    }

    void serialNumberEndsAtItsZeroByte_data()
    {
        QTest::addColumn<QByteArray>("payload");
        QTest::addColumn<QString>("serial");
        QTest::addColumn<int>("errors");
        const QByteArray head = CameraEnd::identity(keyBlend).left(8);
        QTest::newRow("terminated") << head + QByteArray("AB-12\0xy", 8) << "AB-12" << 0;
        QTest::newRow("empty") << head + QByteArray(4, '\0') << "" << 0;
        QTest::newRow("cut at the payload's end") << head + QByteArray("1234") << "1234" << 1;
        QTest::newRow("none at all") << head << "" << 1;
    }
    void serialNumberEndsAtItsZeroByte()
    {
        QFETCH(QByteArray, payload);
        QFETCH(QString, serial);
        ModelWindow tool;
        QVERIFY(tool.chooseModel(keyBlend));
        tool.lines.clear();
        tool.window.parseDeviceID(records::payload(payload));
        QCOMPARE(tool.status(), QStringLiteral("Device ID: QX Blend   Serial: ") + serial);
        QTEST(tool.lines.err().count('\n'), "errors");
    }

    void foreignIdentityIsRefused()
    {
        ModelWindow tool;
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
        const QByteArray whole = CameraEnd::identity(keyBlend);
        for (int size = 0; size < 8; ++size) {
            ModelWindow tool;
            tool.window.parseDeviceID(records::payload(whole.left(size)));
            QCOMPARE(tool.lines.err().count('\n'), 1);
            QVERIFY(tool.lines.out().isEmpty());
            QCOMPARE(tool.status(), QStringLiteral("KoVo"));
        }
    }

    void identityOfThe20IsLaidOutAndLeftThere()
    {
        ModelWindow tool;
        CameraEnd camera;
        QVERIFY(tool.connectTo(camera.path()));
        QTRY_COMPARE(camera.count(116), 1);
        camera.send(216, CameraEnd::identity(key20));
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
            << keyBlend << 20170806U
            << "<p>Outdated firmware detected.<br>Please update the firmware.</p>";
        QTest::newRow("Blend Zoom")
            << keyBlendZoom << 20180121U
            << "<p>Outdated firmware detected.<br>Please update to firmware 1.4.x.</p>";
        QTest::newRow("Blend Zoom with what a Blend may have")
            << keyBlendZoom << 20170807U
            << "<p>Outdated firmware detected.<br>Please update to firmware 1.4.x.</p>";
    }
    void oldFirmwareShowsABox()
    {
        QFETCH(quint32, key);
        QFETCH(quint32, firmware);
        QFETCH(QString, text);
        ModelWindow tool;
        CameraEnd camera;
        QVERIFY(tool.connectTo(camera.path()));
        QString title, body, status;
        QMessageBox::Icon icon = QMessageBox::NoIcon;
        QMessageBox::StandardButtons buttons;
        bool okIsDefault = false;
        Qt::WindowFlags flags;
        int requests = -1;
        const QWidget *owner = nullptr;
        modal::Answer<QMessageBox> answer([&](QMessageBox *box) {
            owner = box->parentWidget();
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
        QCOMPARE(owner, &tool.window);
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
        ModelWindow tool;
        CameraEnd camera;
        QVERIFY(tool.chooseModel(keyBlend));
        QVERIFY(tool.connectTo(camera.path()));
        tool.lines.clear();
        modal::Answer<QMessageBox> answer(modal::cancel<QMessageBox>());
        camera.send(216, CameraEnd::identity(keyBlend, 20170806));
        QTRY_COMPARE(camera.count(102), 1);
        QCOMPARE(tool.lines.out(), QStringLiteral("<<< firmwaredate is to old\n"
                                                  "<<< dialog rejected\n\n"));
    }

    void firmwareCheckTellsItsResult()
    {
        ModelWindow tool;
        QVERIFY(!tool.window.checkFirmwareDate(20200101));
        QCOMPARE(tool.lines.err(),
                 QStringLiteral("MainWindow::checkFirmwareDate() Device unknown\n"));
        tool.chooseModel(key20);
        tool.lines.clear();
        QVERIFY(!tool.window.checkFirmwareDate(20200101));
        QCOMPARE(tool.lines.err(),
                 QStringLiteral("MainWindow::checkFirmwareDate() Device unknown\n"));

        QVERIFY(tool.chooseModel(keyBlendZoom));
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
        ModelWindow tool;
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
            << with(blend, 0, key20) << ""
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
        ModelWindow tool;
        CameraEnd camera;
        QVERIFY(tool.chooseModel(keyBlend));
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
        ModelWindow tool;
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
        ModelWindow tool;
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
        QTest::newRow("Blend") << keyBlend;
        QTest::newRow("Blend Zoom") << keyBlendZoom;
    }
    void configurationIsRequestedOfTheBlendModels()
    {
        QFETCH(quint32, key);
        ModelWindow tool;
        CameraEnd camera;
        QVERIFY(tool.connectTo(camera.path()));
        tool.window.requestConfig(static_cast<KovoDeviceCRCKey_TypeDef>(key));
        QTRY_COMPARE(camera.received(), reference::frame(116, {}) + reference::frame(102, {}));
        QVERIFY(tool.busy());
    }

    void configurationOfOtherModelsIsNotRequested()
    {
        ModelWindow tool;
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
