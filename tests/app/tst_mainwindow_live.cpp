#include "app/messageState.h"
#include "support/captureddiagnostics.h"
#include "support/livesession.h"
#include "support/records.h"

#include <QDateTime>
#include <QLineEdit>
#include <QSignalSpy>
#include <QSlider>
#include <QSpinBox>
#include <QTimer>

namespace {
constexpr quint32 blend = 0xC92A6CE6;
constexpr quint32 blendZoom = 0xA0AF139E;
constexpr quint32 model20 = 0xA0AF139F;
constexpr quint32 liveSettings = 122;
} // namespace

/// Commands that act at once, as their bytes arrive at the camera.
class TestMainWindowLive : public QObject
{
    Q_OBJECT

    /// Whether nothing was sent since `sent`, unless two seconds have passed meanwhile: a test
    /// cannot know how long the machine stood still.
    static bool heldBackSince(qint64 sent)
    {
        return messageState.sendTime == sent || messageState.sendTime - sent >= 2000;
    }

    static qint64 now() { return QDateTime::currentMSecsSinceEpoch(); }

    CapturedDiagnostics m_lines;

private slots:
    void init() { m_lines.clear(); }

    void buttonSendsItsCommand_data();
    void buttonSendsItsCommand();
    void buttonsAreSilentWhileDisconnected_data() { buttonSendsItsCommand_data(); }
    void buttonsAreSilentWhileDisconnected();
    void liveInputsHaveTheirRanges();
    void buttonsCarryTheirTexts();

    void previewSendsTheRecordOfTheForm_data();
    void previewSendsTheRecordOfTheForm();
    void previewWithoutARecordIsReported_data();
    void previewWithoutARecordIsReported();
    void secondPreviewWithinTwoSecondsIsDropped();
    void anyCommandHoldsLiveSettingsBack();
    void previewWhileDisconnectedOnlyLogs();

    void changeOfFocusOrZoomIsSentASecondLater_data();
    void changeOfFocusOrZoomIsSentASecondLater();
    void burstOfSliderMovesIsSentOnce();
    void slowSliderMovesAreSentEveryTwoSeconds();

    void tamronFocusModeEnablesTheSlider();
    void sliderShowsItsFocusValue();
    void qualitySliderAndBoxSettle();
    void pickingAModelLaysTheFormOut();
};

void TestMainWindowLive::buttonSendsItsCommand_data()
{
    QTest::addColumn<QString>("button");
    QTest::addColumn<QString>("box"); // an input that the payload holds, with its value
    QTest::addColumn<int>("value");
    QTest::addColumn<QByteArray>("region"); // length, part, count, command, padded payload
    const auto row = [](const char *name, const char *button, const char *box, int value,
                        const char *region) {
        QTest::newRow(name) << button << box << value << QByteArray::fromHex(region);
    };
    row("trigger start", "pbTriggerStart", "", 0, "00000014 0001 0001 0000007c 01000000");
    row("trigger stop", "pbTriggerStop", "", 0, "00000014 0001 0001 0000007c 00000000");
    row("GPS start", "pbGPSStartStream", "", 0, "00000014 0001 0001 0000007d 01000000");
    row("GPS stop", "pbGPSStopStream", "", 0, "00000014 0001 0001 0000007d 00000000");
    row("do FFC", "pb_ffc_doffc", "", 0, "00000014 0001 0001 00000085 01000000");
    row("zoom at start", "pbVLC_preview_Zoom", "sbVLCZoom", 64,
        "00000014 0001 0001 00000075 61400000");
    row("zoom 0", "pbVLC_preview_Zoom", "sbVLCZoom", 0, "00000014 0001 0001 00000075 61000000");
    row("zoom 17", "pbVLC_preview_Zoom", "sbVLCZoom", 17, "00000014 0001 0001 00000075 61110000");
    row("auto focus", "pbVLCAutoAdjustFocus", "", 0,
        "00000024 0001 0001 00000080 0a0ff0f1f2f3f4f5f6f7f8f9fafbfcfdfe000000");
    row("IR offset -1", "pb_iradj_send", "sb_iradj_offset", -1,
        "00000014 0001 0001 0000009b ffff6400");
    row("IR offset 9999", "pb_iradj_send", "sb_iradj_offset", 9999,
        "00000014 0001 0001 0000009b 0f276400");
    row("IR offset -9999", "pb_iradj_send", "sb_iradj_offset", -9999,
        "00000014 0001 0001 0000009b f1d86400");
    row("IR factor 1000", "pb_iradj_send", "sb_iradj_factor", 1000,
        "00000014 0001 0001 0000009b 0000e803");
}

void TestMainWindowLive::buttonSendsItsCommand()
{
    QFETCH(QString, button);
    QFETCH(QString, box);
    QFETCH(int, value);
    QFETCH(QByteArray, region);
    LiveSession session(blend);
    QVERIFY(session.connected);
    if (!box.isEmpty())
        session.get<QSpinBox>(box.toLatin1())->setValue(value);
    session.click(button.toLatin1());
    QVERIFY(session.busy());
    // After the question for the identity, exactly this frame.
    const QByteArray expected = reference::frame(116, {}) + reference::enclose(region);
    QTRY_COMPARE(session.camera.received().toHex(), expected.toHex());
}

void TestMainWindowLive::buttonsAreSilentWhileDisconnected()
{
    QFETCH(QString, button);
    CameraEnd camera;
    WindowUnderTest tool;
    QVERIFY(tool.connectTo(camera.path()));
    QTRY_COMPARE(camera.count(116), 1);
    tool.get<QPushButton>("btConnectDisconnect")->click();
    messageState.sendTime = 0;
    m_lines.clear();
    const QByteArray handler = "on_" + button.toLatin1() + "_clicked";
    QVERIFY(QMetaObject::invokeMethod(&tool.window, handler));
    QVERIFY(!tool.busy());
    QVERIFY(m_lines.out().isEmpty());
    QVERIFY(m_lines.err().isEmpty());
    QCOMPARE(messageState.sendTime, 0);
    // What is sent after the next connect comes next on the line.
    QVERIFY(tool.connectTo(camera.path()));
    QTRY_COMPARE(camera.commands(), QVector<quint32>({116, 116}));
}

void TestMainWindowLive::liveInputsHaveTheirRanges()
{
    WindowUnderTest tool;
    const auto range = [&](const char *name) {
        const auto *box = tool.get<QSpinBox>(name);
        return QVector<int>{box->minimum(), box->maximum(), box->value()};
    };
    QCOMPARE(range("sbVLCZoom"), QVector<int>({0, 64, 64}));
    QCOMPARE(range("sb_iradj_offset"), QVector<int>({-9999, 9999, 0}));
    QCOMPARE(range("sb_iradj_factor"), QVector<int>({1, 1000, 100}));
}

void TestMainWindowLive::buttonsCarryTheirTexts()
{
    WindowUnderTest tool;
    const std::pair<const char *, const char *> texts[] = {
        {"pbTriggerStart", "Trigger Start"},
        {"pbTriggerStop", "Trigger Stop"},
        {"pbGPSStartStream", "Start data stream"},
        {"pbGPSStopStream", "Stop data stream"},
        {"pb_ffc_doffc", "Do FFC"},
        {"pbVLC_preview_Zoom", "Live-Preview"},
        {"pbVLCAutoAdjustFocus", "Auto adjust focus (~20sek)"},
        {"pb_iradj_send", "PushButton"},
        {"pbLivePreview", "Settings-Preview"},
        {"pbSbusTest", "Channel Test"},
    };
    for (const auto &[name, text] : texts)
        QCOMPARE(tool.get<QPushButton>(name)->text(), QString(text));
}

void TestMainWindowLive::previewSendsTheRecordOfTheForm_data()
{
    QTest::addColumn<quint32>("model");
    QTest::addColumn<int>("size");
    QTest::addColumn<QByteArray>("header");
    QTest::addColumn<int>("frameSkipOffset");
    QTest::newRow("Blend") << blend << 207 << QByteArray::fromHex("e66c2ac9c1000000dcf03301") << 74;
    QTest::newRow("Blend Zoom") << blendZoom << 223
                                << QByteArray::fromHex("9e13afa0d100000055163401") << 87;
}

void TestMainWindowLive::previewSendsTheRecordOfTheForm()
{
    QFETCH(quint32, model);
    QFETCH(int, size);
    LiveSession session(model);
    session.get<QLineEdit>("leFrameSkip")->setText("305419896");
    session.click("pbLivePreview");
    QTRY_COMPARE(session.camera.count(liveSettings), 1);
    QByteArray record = session.camera.last(liveSettings);
    QCOMPARE(record.size(), size + 1); // one byte of padding
    QCOMPARE(record.at(size), '\0');
    record.chop(1);
    QTEST(record.left(12), "header");
    QFETCH(int, frameSkipOffset);
    QCOMPARE(records::get<quint32>(record, frameSkipOffset), 0x12345678U);
    QCOMPARE(record, records::sealed(record));
    QVERIFY(session.busy());
    QVERIFY(m_lines.err().count("<<< not implemeted") == 0);
}

void TestMainWindowLive::previewWithoutARecordIsReported_data()
{
    QTest::addColumn<quint32>("model");
    QTest::newRow("no model") << 0U;
    QTest::newRow("2.0") << model20;
}

void TestMainWindowLive::previewWithoutARecordIsReported()
{
    QFETCH(quint32, model);
    LiveSession session(model);
    m_lines.clear();
    session.click("pbLivePreview");
    QCOMPARE(m_lines.err(), QStringLiteral("<<< not implemeted\n"));
    QVERIFY(session.arrived());
    QCOMPARE(session.camera.commands(), QVector<quint32>({116, 133}));
}

void TestMainWindowLive::secondPreviewWithinTwoSecondsIsDropped()
{
    LiveSession session(blendZoom);
    session.click("pbLivePreview");
    const qint64 first = messageState.sendTime;
    session.click("pbLivePreview");
    QVERIFY(heldBackSince(first));
    QTRY_VERIFY(now() - first >= 2000);
    const int before = session.arrived() ? session.camera.count(liveSettings) : -1;
    QCOMPARE(before, 1);
    LiveSession::forgetLastSend(); // of the command that has just arrived
    session.click("pbLivePreview");
    QTRY_COMPARE(session.camera.count(liveSettings), 2);
}

void TestMainWindowLive::anyCommandHoldsLiveSettingsBack()
{
    LiveSession session(blend);
    session.click("pbTriggerStart");
    const qint64 sent = messageState.sendTime;
    session.click("pbLivePreview");
    QVERIFY(heldBackSince(sent));
    QTRY_VERIFY(now() - sent >= 2000);
    session.click("pbLivePreview");
    QTRY_COMPARE(session.camera.commands(), QVector<quint32>({116, 124, 122}));
}

void TestMainWindowLive::previewWhileDisconnectedOnlyLogs()
{
    WindowUnderTest tool;
    tool.chooseModel(blend);
    messageState.sendTime = 0;
    m_lines.clear();
    QVERIFY(!tool.widget("pbLivePreview")->isEnabled());
    tool.window.slotSendLiveSettings();
    QCOMPARE(m_lines.out(), QStringLiteral("<<< ERROR writeData: serial port not open\n\n"));
    QVERIFY(m_lines.err().isEmpty());
    QVERIFY(tool.busy());
    // A send that nobody received holds the next one back as well.
    const qint64 sent = messageState.sendTime;
    QVERIFY(sent > 0);
    tool.window.slotSendLiveSettings();
    QVERIFY(heldBackSince(sent));
}

void TestMainWindowLive::changeOfFocusOrZoomIsSentASecondLater_data()
{
    QTest::addColumn<bool>("zoom");
    QTest::newRow("focus") << false;
    QTest::newRow("zoom") << true;
}

void TestMainWindowLive::changeOfFocusOrZoomIsSentASecondLater()
{
    QFETCH(bool, zoom);
    LiveSession session(blendZoom);
    // Timers of the same length fire in the order of their start, however slow the machine is.
    Shot before(1000);
    bool sentTooEarly = false;
    QTimer::singleShot(1000, &before.context,
                       [&] { sentTooEarly = messageState.command == liveSettings; });
    if (zoom)
        session.get<QSpinBox>("sbTamronZoom")->setValue(7);
    else
        session.get<QSlider>("hsTamronfocusvalue")->setValue(8192);
    Shot after(1000);
    QTRY_VERIFY(after.fired);
    QVERIFY(before.fired);
    QVERIFY(!sentTooEarly);
    QCOMPARE(quint32(messageState.command), liveSettings);
    QTRY_COMPARE(session.camera.count(liveSettings), 1);
    const QByteArray record = session.camera.last(liveSettings);
    QCOMPARE(records::get<quint16>(record, 70), quint16(zoom ? 4096 : 8192));
    QCOMPARE(records::get<quint16>(record, 76), quint16(zoom ? 6 : 0));
}

void TestMainWindowLive::burstOfSliderMovesIsSentOnce()
{
    LiveSession session(blendZoom);
    for (int value = 4224; value <= 4224 + 20 * 128; value += 128)
        session.get<QSlider>("hsTamronfocusvalue")->setValue(value);
    Shot after(1000); // every move has had its second then
    QTRY_VERIFY(after.fired);
    QCOMPARE(quint32(messageState.command), liveSettings);
    const bool inTime = now() - messageState.sendTime < 2000; // else the machine stood still
    QVERIFY(session.arrived());
    QVERIFY(session.camera.count(liveSettings) == 1 || !inTime);
    // The form is read when the record is built: its last position counts.
    QCOMPARE(records::get<quint16>(session.camera.last(liveSettings), 70), quint16(6784));
}

void TestMainWindowLive::slowSliderMovesAreSentEveryTwoSeconds()
{
    LiveSession session(blendZoom);
    auto *slider = session.get<QSlider>("hsTamronfocusvalue");
    QTimer mover;
    connect(&mover, &QTimer::timeout, slider, [=] { slider->setValue(slider->value() + 128); });
    const qint64 start = now();
    mover.start(50);

    QVector<qint64> sends;
    const auto watch = [&] {
        if (quint32(messageState.command) == liveSettings &&
            (sends.isEmpty() || sends.last() != messageState.sendTime))
            sends << messageState.sendTime;
        return sends.size() == 3;
    };
    QVERIFY(QTest::qWaitFor(watch, 30000));
    mover.stop();
    QVERIFY(sends[0] - start >= 1000);
    QVERIFY(sends[1] - sends[0] >= 2000);
    QVERIFY(sends[2] - sends[1] >= 2000);
    QTRY_VERIFY(session.camera.count(liveSettings) >= 3);
    QCOMPARE(session.camera.commands().mid(0, 4), QVector<quint32>({116, 122, 122, 122}));
}

void TestMainWindowLive::tamronFocusModeEnablesTheSlider()
{
    WindowUnderTest tool;
    const auto enabled = [&](bool expected) {
        for (const char *name : {"hsTamronfocusvalue", "label_68", "label_69"})
            if (tool.widget(name)->isEnabledTo(tool.widget(name)->parentWidget()) != expected)
                return false;
        return true;
    };
    auto *mode = tool.get<QComboBox>("cbVLCTamronFocus");
    QVERIFY(enabled(false));
    mode->setCurrentIndex(2); // once after zoom: as before
    QVERIFY(enabled(false));
    mode->setCurrentIndex(1);
    QVERIFY(enabled(true));
    mode->setCurrentIndex(2);
    QVERIFY(enabled(true));
    mode->setCurrentIndex(0);
    QVERIFY(enabled(false));
}

void TestMainWindowLive::sliderShowsItsFocusValue()
{
    WindowUnderTest tool;
    auto *slider = tool.get<QSlider>("hsTamronfocusvalue");
    for (const int value : {45056, 4096, 20480}) {
        slider->setValue(value);
        QCOMPARE(tool.get<QSpinBox>("sbTamronFocusValue")->value(), value);
    }
}

void TestMainWindowLive::qualitySliderAndBoxSettle()
{
    WindowUnderTest tool;
    auto *slider = tool.get<QSlider>("hs_JPEGcompressionDaylight");
    auto *box = tool.get<QSpinBox>("sbJPEGcompressionDaylight");
    slider->setValue(2);
    QCOMPARE(box->value(), 95);
    QSignalSpy moved(slider, &QSlider::valueChanged);
    box->setValue(95);
    QCOMPARE(moved.count(), 0);
}

void TestMainWindowLive::pickingAModelLaysTheFormOut()
{
    WindowUnderTest tool;
    auto *models = tool.get<QComboBox>("cBDevice");
    models->setCurrentIndex(1);
    QVERIFY(!tool.hidden("gbTamronFocus"));
    QVERIFY(tool.hidden("gbSonyFCBFocus"));
    models->setCurrentIndex(0);
    QVERIFY(tool.hidden("gbTamronFocus"));
    QVERIFY(!tool.hidden("gbSonyFCBFocus"));
}

QTEST_MAIN(TestMainWindowLive)
#include "tst_mainwindow_live.moc"
