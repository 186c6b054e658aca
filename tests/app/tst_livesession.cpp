// Live commands of the whole tool with the simulated camera: two programs and a pseudo-terminal
// between them. What one side did is compared with the other's own account.

#include "app/messageState.h"
#include "support/captureddiagnostics.h"
#include "support/simulatorprocess.h"
#include "support/windowundertest.h"

#include <QDateTime>
#include <QDialog>
#include <QLCDNumber>
#include <QPlainTextEdit>
#include <QSet>
#include <QSpinBox>
#include <QStatusBar>
#include <QTimer>

#include <algorithm>
#include <memory>

class TestLiveSession : public QObject
{
    Q_OBJECT

    QPushButton *button(const char *name) { return m_tool->get<QPushButton>(name); }
    QString gpsText() { return m_tool->get<QPlainTextEdit>("pteGPSstream")->toPlainText(); }

    bool idle()
    {
        return QTest::qWaitFor([this] { return !m_tool->busy(); });
    }

    /// How many lines of the camera's log begin so. Requests with "<-", answers with "->".
    int logged(const QString &start)
    {
        const QStringList lines = m_camera->log();
        return int(std::count_if(lines.begin(), lines.end(),
                                 [&](const QString &line) { return line.startsWith(start); }));
    }

    /// Lines of the tool on standard output that read so.
    int written(const char *line)
    {
        return m_lines.out().split(QLatin1Char('\n')).count(QString::fromLatin1(line));
    }

    /// Standard error without the line of the check 100 ms after a send, which looks at whatever is
    /// outstanding then.
    QString errors() const
    {
        return QString(m_lines.err())
            .remove(QStringLiteral("<<< This should not have happened! Message was not send\n"));
    }

    /// Whether an NMEA sentence ends with the exclusive or of what stands between its "$" and "*".
    static bool checksumIsRight(const QString &sentence)
    {
        const QByteArray text = sentence.toLatin1();
        const int star = text.size() - 3;
        if (star < 2 || !text.startsWith('$') || text.at(star) != '*')
            return false;
        int sum = 0;
        for (int i = 1; i < star; ++i)
            sum ^= text.at(i);
        return text.mid(star + 1).toInt(nullptr, 16) == sum;
    }

    /// Runs the event loop for so long.
    static bool passes(int ms)
    {
        bool fired = false;
        QTimer timer;
        timer.setSingleShot(true);
        connect(&timer, &QTimer::timeout, &timer, [&] { fired = true; });
        timer.start(ms);
        return QTest::qWaitFor([&] { return fired; }, ms + 30000);
    }

    CapturedDiagnostics m_lines;
    std::unique_ptr<SimulatorProcess> m_camera;
    std::unique_ptr<WindowUnderTest> m_tool;

private slots:
    void initTestCase_data()
    {
        QTest::addColumn<QString>("model");
        QTest::addColumn<QString>("identity");
        QTest::addColumn<int>("recordSize");
        QTest::newRow("Blend") << "blend"
                               << "Device ID: QX Blend   Serial: BL-77" << 207;
        QTest::newRow("Blend Zoom") << "blend-zoom"
                                    << "Device ID: QX Blend Zoom   Serial: BL-77" << 223;
    }

    void init()
    {
        QFETCH_GLOBAL(QString, model);
        QFETCH_GLOBAL(QString, identity);
        m_camera = std::make_unique<SimulatorProcess>();
        QVERIFY(m_camera->start({"--model", model, "--serial", "BL-77"}));
        m_tool = std::make_unique<WindowUnderTest>();
        m_tool->window.show();
        QVERIFY(m_tool->connectTo(m_camera->path()));
        QVERIFY(idle());
        QCOMPARE(m_tool->window.statusBar()->currentMessage(), identity);
        // With the record shown, no change of it is left to be sent by itself.
        QVERIFY(passes(1000));
        m_lines.clear();
    }
    void cleanup()
    {
        m_tool.reset();
        m_camera.reset();
    }

    void everyButtonReachesTheCamera();
    void gpsTextRunsBetweenStartAndStop();
    void testerShowsWhatTheCameraAnswers();
};

void TestLiveSession::everyButtonReachesTheCamera()
{
    QFETCH_GLOBAL(int, recordSize);
    const struct
    {
        const char *button;
        QString request;
        QString answer;
    } presses[] = {
        {"pbTriggerStart", "COMIO_CMD_TRIGGER (124), 4 bytes: start", "COMIO_CMD_TRIGGER"},
        {"pbTriggerStop", "COMIO_CMD_TRIGGER (124), 4 bytes: stop", "COMIO_CMD_TRIGGER"},
        {"pbGPSStartStream", "COMIO_CMD_GPS_STREAM (125), 4 bytes: start", "COMIO_CMD_GPS_STREAM"},
        {"pbGPSStopStream", "COMIO_CMD_GPS_STREAM (125), 4 bytes: stop", "COMIO_CMD_GPS_STREAM"},
        {"pb_ffc_doffc", "COMIO_CMD_DO_FFC (133), 4 bytes", "COMIO_CMD_DO_FFC"},
        {"pbVLC_preview_Zoom", "COMIO_CMD_VLC_PREVIEW_ZOOM (117), 4 bytes",
         "COMIO_CMD_VLC_PREVIEW_ZOOM"},
        {"pbVLCAutoAdjustFocus", "COMIO_CMD_VLC_AUTO_ADJUST_FOCUS (128), 20 bytes: focus ",
         "COMIO_CMD_VLC_AUTO_ADJUST_FOCUS"},
        {"pb_iradj_send", "COMIO_CMD_IR_ADJUST (155), 4 bytes", "COMIO_CMD_IR_ADJUST"},
        {"pbLivePreview",
         QStringLiteral("COMIO_CMD_SET_LIVE_SETTINGS (122), %1 bytes: in use, ")
             .arg(recordSize + 1),
         "COMIO_CMD_SET_LIVE_SETTINGS"},
    };
    for (const auto &press : presses) {
        const QString answer = "-> " + press.answer + "_REPLY_OK";
        const int before = logged(answer);
        if (press.button == QLatin1String("pbLivePreview"))
            QTRY_VERIFY(QDateTime::currentMSecsSinceEpoch() - messageState.sendTime >= 2000);
        QCOMPARE(logged("<- " + press.request), 0);
        QVERIFY2(button(press.button)->isEnabled(), press.button);
        button(press.button)->click();
        QVERIFY2(m_tool->busy(), press.button);
        QVERIFY2(idle(), press.button);
        QTRY_VERIFY2(logged("<- " + press.request) == 1, press.button);
        QTRY_VERIFY2(logged(answer) > before, press.button);
    }
    const QString focus = m_camera->log().filter("(128), 20 bytes: focus ").last();
    QCOMPARE(m_tool->get<QSpinBox>("sbVLCFocusAdjustment")->value(),
             focus.mid(focus.lastIndexOf(QLatin1Char(' '))).toInt());
    QCOMPARE(errors(), QString());
}

void TestLiveSession::gpsTextRunsBetweenStartAndStop()
{
    QVERIFY(gpsText().isEmpty());
    button("pbGPSStartStream")->click();
    QTRY_VERIFY_WITH_TIMEOUT(gpsText().count(QLatin1Char('\n')) >= 2, 10000);
    button("pbGPSStopStream")->click();
    QVERIFY(idle());
    const QString text = gpsText();
    for (const QString &sentence : text.split(QLatin1Char('\n')))
        QVERIFY2(checksumIsRight(sentence), qPrintable(sentence));
    QCOMPARE(logged("-> COMIO_CMD_GPS_STREAM_DATA_REPLY_OK"), text.count(QLatin1Char('\n')) + 1);
    QVERIFY(passes(1500)); // a sentence comes every second
    QCOMPARE(gpsText(), text);
    QCOMPARE(errors(), QString());
}

void TestLiveSession::testerShowsWhatTheCameraAnswers()
{
    m_tool->get<QComboBox>("cbTriggerPinMode")->setCurrentIndex(1); // opens the channels
    button("pbSbusTest")->click();
    auto *tester = m_tool->window.findChild<QDialog *>("sbusTester");
    QVERIFY(tester->isVisible() && tester->isEnabled());
    tester->findChild<QPushButton *>("pbSbusTester_startstream")->click();

    const QString request = "<- COMIO_CMD_GET_SBUS_LEVELS (123), 0 bytes";
    const QString answer = "-> COMIO_CMD_GET_SBUS_LEVELS_REPLY_OK (223), 32 bytes";
    const auto *number = tester->findChild<QLCDNumber *>("lcd1");
    QSet<int> shown;
    const auto rounds = [&] {
        shown << number->intValue();
        return written("sbusTester::parseSbusLevels()");
    };
    QTRY_VERIFY_WITH_TIMEOUT(rounds() >= 6, 10000);
    shown.remove(0);
    QVERIFY(shown.size() >= 2); // the channels sweep

    tester->close();
    const int asked = written("sbusTester::slotTimerRequestSbusLevels())");
    QVERIFY(asked >= 6);
    QTRY_COMPARE(written("sbusTester::parseSbusLevels()"), asked);
    QTRY_COMPARE(logged(request), asked);
    QTRY_COMPARE(logged(answer), asked);

    QVERIFY(passes(600)); // a poll would be due before
    button("pb_ffc_doffc")->click();
    QVERIFY(idle());
    QTRY_COMPARE(logged("-> COMIO_CMD_DO_FFC"), 1); // the log is complete up to here
    QCOMPARE(written("sbusTester::slotTimerRequestSbusLevels())"), asked);
    QCOMPARE(logged(request), asked);
    QCOMPARE(errors(), QString());
}

QTEST_MAIN(TestLiveSession)
#include "tst_livesession.moc"
