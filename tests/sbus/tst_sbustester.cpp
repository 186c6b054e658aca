#include "sbus/sbusTester.h"

#include "diagnostics/diagnostics.h"
#include "link/kovoPacketManager.h"

#include <QElapsedTimer>
#include <QGroupBox>
#include <QHideEvent>
#include <QLCDNumber>
#include <QLabel>
#include <QPushButton>
#include <QQuickItem>
#include <QQuickWidget>
#include <QQuickWindow>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QSlider>
#include <QTest>
#include <QTimer>

#include <memory>

/// COMIO_CMD_GET_SBUS_LEVELS without payload; the CRC was worked out apart from the program.
static const QByteArray levelRequest = QByteArray::fromHex("4b4f564f"
                                                           "00000010"
                                                           "0001"
                                                           "0001"
                                                           "0000007b"
                                                           "63086490"
                                                           "00");

class tst_sbusTester : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void formShowsSixteenChannels();
    void indicatorLiesOnTheColourOfTheDialog();
    void startsIdle();
    void timerRunsWhileStreaming_data();
    void timerRunsWhileStreaming();
    void streamAsksForLevelsTwiceASecond();
    void streamKeepsAskingWithoutReplies();
    void startStopTwiceReturnsToIdleWithZeroedDisplay();
    void lostConnectionStopsTheRequestsAndGreysTheDialogOut();
    void newConnectionEnablesTheDialogAndStaysIdle();
    void connectionWhileStreamingChangesNothing();
    void iconifiedDialogGoesOnPolling();
    void nothingPollsAfterTheDialogIsClosed_data();
    void nothingPollsAfterTheDialogIsClosed();
    void closingZeroesTheDisplayAndWritesTheEvent();
    void dialogStreamsAgainAfterItWasClosed();
    void levelsAreShownWhileIdle();
    void levelsGoToTheirChannels();
    void thousandPutsTheBarAtMidRange();
    void highestLevelShowsInFullAndPinsTheBar();
    void longPayloadShowsItsFirstSixteenLevels();
    void shortPayloadIsRefused_data();
    void shortPayloadIsRefused();
    void barsAreNoInputs();
    void indicatorSpinsWhileStreaming();
    void destructionWhileStreamingIsSilent();

private:
    QLCDNumber *number(int channel) const
    {
        return m_tester->findChild<QLCDNumber *>(QStringLiteral("lcd%1").arg(channel));
    }
    QSlider *bar(int channel) const
    {
        return m_tester->findChild<QSlider *>(QStringLiteral("hs_clv%1").arg(channel));
    }
    QPushButton *startStop() const
    {
        return m_tester->findChild<QPushButton *>(QStringLiteral("pbSbusTester_startstream"));
    }
    bool spins() const
    {
        auto *view = m_tester->findChild<QQuickWidget *>(QStringLiteral("quickWidget"));
        return view->rootObject()->property("running").toBool();
    }
    bool displayIsZero() const
    {
        for (int n = 1; n <= 16; ++n) {
            if (number(n)->value() != 0 || bar(n)->value() != 0)
                return false;
        }
        return true;
    }
    /// True if no request leaves during one and a half intervals.
    static bool staysSilent(QSignalSpy &requests) { return !requests.wait(750); }
    static QVector<unsigned char> levels(quint16 first, quint16 step = 0)
    {
        QVector<unsigned char> payload;
        for (int i = 0; i < 16; ++i, first = quint16(first + step))
            payload << (first & 0xff) << (first >> 8);
        return payload;
    }

    std::unique_ptr<kovoPacketManager> m_packetManager;
    std::unique_ptr<sbusTester> m_tester;
    QStringList m_out;
    QStringList m_err;
};

void tst_sbusTester::initTestCase()
{
    QQuickWindow::setSceneGraphBackend(QSGRendererInterface::Software);
}

void tst_sbusTester::init()
{
    m_packetManager = std::make_unique<kovoPacketManager>(nullptr);
    m_tester = std::make_unique<sbusTester>(nullptr);
    m_tester->setPacketManager(m_packetManager.get());
    diagnostics::setSink([this](diagnostics::Stream stream, const QString &text) {
        (stream == diagnostics::Stream::Out ? m_out : m_err) << text;
    });
}

void tst_sbusTester::cleanup()
{
    m_tester.reset();
    m_packetManager.reset();
    diagnostics::setSink({});
    m_out.clear();
    m_err.clear();
}

void tst_sbusTester::formShowsSixteenChannels()
{
    QCOMPARE(m_tester->objectName(), QStringLiteral("sbusTester"));
    QCOMPARE(m_tester->windowTitle(), QStringLiteral("Sbus tester"));
    QCOMPARE(m_tester->size(), QSize(514, 330));
    QCOMPARE(startStop()->text(), QStringLiteral("Start/Stop"));
    QCOMPARE(m_tester->findChild<QGroupBox *>()->title(), QStringLiteral("Channel live values"));
    QStringList texts;
    for (const QLabel *label : m_tester->findChildren<QLabel *>())
        texts << label->text();
    for (int n = 1; n <= 16; ++n) {
        QVERIFY(texts.contains(QStringLiteral("Channel %1").arg(n)));
        QVERIFY(number(n));
        QCOMPARE(number(n)->segmentStyle(), QLCDNumber::Flat);
        QVERIFY(bar(n));
        QCOMPARE(bar(n)->orientation(), Qt::Horizontal);
        QCOMPARE(bar(n)->minimum(), 0);
        QCOMPARE(bar(n)->maximum(), 2000);
    }
}

void tst_sbusTester::indicatorLiesOnTheColourOfTheDialog()
{
    auto *view = m_tester->findChild<QQuickWidget *>(QStringLiteral("quickWidget"));
    QCOMPARE(view->source(), QUrl(QStringLiteral("qrc:/BusyIndicator.qml")));
    const QColor dialog = m_tester->palette().color(QPalette::Window);
    QVERIFY(dialog != Qt::white); // as a view is without a colour of its own
    QCOMPARE(view->quickWindow()->color(), dialog);
}

void tst_sbusTester::timerRunsWhileStreaming_data()
{
    QTest::addColumn<int>("end");
    QTest::newRow("Start/Stop") << 0;
    QTest::newRow("close") << 1;
    QTest::newRow("disconnect") << 2;
}

void tst_sbusTester::timerRunsWhileStreaming()
{
    QFETCH(int, end);
    const QList<QTimer *> timers =
        m_tester->findChildren<QTimer *>(QString(), Qt::FindDirectChildrenOnly);
    QCOMPARE(timers.count(), 1);
    const QTimer *timer = timers.first();
    QVERIFY(!timer->isActive());
    m_tester->show();
    startStop()->click();
    QVERIFY(timer->isActive());
    QCOMPARE(timer->interval(), 500);
    QVERIFY(!timer->isSingleShot());
    switch (end) {
    case 0:
        startStop()->click();
        break;
    case 1:
        m_tester->close();
        break;
    default:
        m_tester->connectDevice(false);
    }
    QVERIFY(!timer->isActive());
}

void tst_sbusTester::startsIdle()
{
    QSignalSpy requests(m_tester.get(), &sbusTester::signalSendPackage);
    QVERIFY(displayIsZero());
    QVERIFY(!spins());
    QVERIFY(staysSilent(requests));
}

void tst_sbusTester::streamAsksForLevelsTwiceASecond()
{
    QSignalSpy requests(m_tester.get(), &sbusTester::signalSendPackage);
    QElapsedTimer clock;
    clock.start();
    startStop()->click();
    QCOMPARE(m_out, {QStringLiteral("sbusTester::on_pbSbusTester_startstream_clicked\n")});
    QCOMPARE(requests.count(), 0);
    QTRY_COMPARE_WITH_TIMEOUT(requests.count(), 4, 10000);
    QVERIFY2(clock.elapsed() >= 4LL * 475, "the requests came faster than every 500 ms");
    for (const QList<QVariant> &request : requests)
        QCOMPARE(request.first().toByteArray().toHex(), levelRequest.toHex());
    QCOMPARE(m_out.count(QStringLiteral("sbusTester::slotTimerRequestSbusLevels())\n")), 4);
    QVERIFY(m_err.isEmpty());
}

void tst_sbusTester::streamKeepsAskingWithoutReplies()
{
    QSignalSpy requests(m_tester.get(), &sbusTester::signalSendPackage);
    m_tester->ongoingRequest(true);
    QTRY_COMPARE_WITH_TIMEOUT(requests.count(), 2, 10000);
    m_tester->parseSbusLevels(levels(900));
    QTRY_COMPARE_WITH_TIMEOUT(requests.count(), 4, 10000);
}

void tst_sbusTester::startStopTwiceReturnsToIdleWithZeroedDisplay()
{
    QSignalSpy requests(m_tester.get(), &sbusTester::signalSendPackage);
    startStop()->click();
    m_tester->parseSbusLevels(levels(100, 10));
    QVERIFY(!displayIsZero());
    startStop()->click();
    QVERIFY(displayIsZero());
    QVERIFY(!spins());
    QVERIFY(staysSilent(requests));
}

void tst_sbusTester::lostConnectionStopsTheRequestsAndGreysTheDialogOut()
{
    m_tester->connectDevice(true);
    QSignalSpy requests(m_tester.get(), &sbusTester::signalSendPackage);
    startStop()->click();
    m_tester->parseSbusLevels(levels(1500));
    QVERIFY(requests.wait());
    m_tester->connectDevice(false);
    QVERIFY(!m_tester->isEnabled());
    QVERIFY(!startStop()->isEnabled());
    QVERIFY(displayIsZero());
    QVERIFY(!spins());
    QVERIFY(staysSilent(requests));
}

void tst_sbusTester::newConnectionEnablesTheDialogAndStaysIdle()
{
    QSignalSpy requests(m_tester.get(), &sbusTester::signalSendPackage);
    m_tester->connectDevice(false);
    m_tester->connectDevice(true);
    QVERIFY(m_tester->isEnabled());
    QVERIFY(!spins());
    QVERIFY(staysSilent(requests));
}

void tst_sbusTester::connectionWhileStreamingChangesNothing()
{
    QSignalSpy requests(m_tester.get(), &sbusTester::signalSendPackage);
    m_tester->connectDevice(true);
    startStop()->click();
    m_tester->parseSbusLevels(levels(700));
    m_tester->connectDevice(true);
    QVERIFY(m_tester->isEnabled());
    QVERIFY(spins());
    for (int n = 1; n <= 16; ++n) {
        QCOMPARE(number(n)->intValue(), 700);
        QCOMPARE(bar(n)->value(), 700);
    }
    QVERIFY(requests.wait());
}

void tst_sbusTester::iconifiedDialogGoesOnPolling()
{
    m_tester->show();
    startStop()->click();
    m_tester->parseSbusLevels(levels(700));
    // The window system hides an iconified window; that event is spontaneous.
    QHideEvent event;
    QSpontaneKeyEvent::setSpontaneous(&event);
    QVERIFY(qApp->notify(m_tester.get(), &event));
    QVERIFY(spins());
    QCOMPARE(number(1)->intValue(), 700);
    QSignalSpy requests(m_tester.get(), &sbusTester::signalSendPackage);
    QVERIFY(requests.wait());
}

void tst_sbusTester::nothingPollsAfterTheDialogIsClosed_data()
{
    QTest::addColumn<bool>("escape");
    QTest::newRow("by its cross") << false;
    QTest::newRow("by Escape") << true;
}

void tst_sbusTester::nothingPollsAfterTheDialogIsClosed()
{
    QFETCH(bool, escape);
    m_tester->show();
    QSignalSpy requests(m_tester.get(), &sbusTester::signalSendPackage);
    startStop()->click();
    QVERIFY(requests.wait());
    if (escape)
        QTest::keyClick(m_tester.get(), Qt::Key_Escape);
    else
        m_tester->close();
    QVERIFY(!m_tester->isVisible());
    QVERIFY(!spins());
    QVERIFY(staysSilent(requests));
}

void tst_sbusTester::closingZeroesTheDisplayAndWritesTheEvent()
{
    m_tester->show();
    m_tester->ongoingRequest(true);
    m_tester->parseSbusLevels(levels(1234));
    m_out.clear();
    QVERIFY(m_tester->close());
    QVERIFY(displayIsZero());
    QCOMPARE(m_out.count(), 1);
    const QRegularExpression line(QStringLiteral("^sbusTester::closeEvent\\(0x[0-9a-f]+\\)\n$"));
    QVERIFY2(line.match(m_out.first()).hasMatch(), qPrintable(m_out.first()));
}

void tst_sbusTester::dialogStreamsAgainAfterItWasClosed()
{
    m_tester->show();
    m_tester->ongoingRequest(true);
    m_tester->close();
    m_tester->show();
    QSignalSpy requests(m_tester.get(), &sbusTester::signalSendPackage);
    startStop()->click();
    QVERIFY(requests.wait());
    QVERIFY(spins());
}

void tst_sbusTester::levelsAreShownWhileIdle()
{
    m_tester->parseSbusLevels(levels(300));
    QCOMPARE(number(16)->intValue(), 300);
    m_tester->ongoingRequest(true);
    m_tester->ongoingRequest(false);
    QVERIFY(displayIsZero());
    m_tester->parseSbusLevels(levels(800)); // the reply to the last request
    QCOMPARE(number(16)->intValue(), 800);
    QCOMPARE(bar(16)->value(), 800);
}

void tst_sbusTester::levelsGoToTheirChannels()
{
    QVector<unsigned char> payload(32, 0);
    for (int n = 1; n <= 16; ++n) {
        payload[2 * (n - 1)] = static_cast<unsigned char>(n); // 256 + n, low byte first
        payload[2 * (n - 1) + 1] = 1;
    }
    m_tester->parseSbusLevels(payload);
    for (int n = 1; n <= 16; ++n) {
        QCOMPARE(number(n)->intValue(), 256 + n);
        QCOMPARE(bar(n)->value(), 256 + n);
    }
    QCOMPARE(m_out, {QStringLiteral("sbusTester::parseSbusLevels()\n")});
    QVERIFY(m_err.isEmpty());
}

void tst_sbusTester::thousandPutsTheBarAtMidRange()
{
    QVector<unsigned char> payload(32, 0);
    payload[0] = 0xe8;
    payload[1] = 0x03;
    m_tester->parseSbusLevels(payload);
    QCOMPARE(number(1)->intValue(), 1000);
    QCOMPARE(2 * bar(1)->value(), bar(1)->minimum() + bar(1)->maximum());
    QCOMPARE(number(2)->intValue(), 0);
}

void tst_sbusTester::highestLevelShowsInFullAndPinsTheBar()
{
    QSignalSpy overflow(number(16), &QLCDNumber::overflow);
    m_tester->parseSbusLevels(levels(0xffff));
    QCOMPARE(number(16)->intValue(), 65535);
    QCOMPARE(overflow.count(), 0);
    QCOMPARE(bar(16)->value(), 2000);
}

void tst_sbusTester::longPayloadShowsItsFirstSixteenLevels()
{
    m_tester->parseSbusLevels(levels(700) + levels(9));
    for (int n = 1; n <= 16; ++n)
        QCOMPARE(number(n)->intValue(), 700);
    QVERIFY(m_err.isEmpty());
}

void tst_sbusTester::shortPayloadIsRefused_data()
{
    QTest::addColumn<int>("length");
    for (int length : {0, 1, 2, 31})
        QTest::newRow(qPrintable(QString::number(length))) << length;
}

void tst_sbusTester::shortPayloadIsRefused()
{
    QFETCH(int, length);
    m_tester->parseSbusLevels(levels(321));
    m_out.clear();
    m_tester->parseSbusLevels(levels(654).mid(0, length));
    for (int n = 1; n <= 16; ++n) {
        QCOMPARE(number(n)->intValue(), 321);
        QCOMPARE(bar(n)->value(), 321);
    }
    QCOMPARE(m_out, {QStringLiteral("sbusTester::parseSbusLevels()\n")});
    QCOMPARE(m_err.count(), 1);
    QCOMPARE(m_err.first().count(QLatin1Char('\n')), 1);
}

void tst_sbusTester::barsAreNoInputs()
{
    m_tester->show();
    m_tester->parseSbusLevels(levels(500));
    QVERIFY(QTest::qWaitForWindowExposed(m_tester.get()));
    QTest::mouseClick(m_tester->windowHandle(), Qt::LeftButton, {},
                      bar(3)->mapTo(m_tester.get(), bar(3)->rect().center()));
    QCOMPARE(bar(3)->value(), 500);
}

void tst_sbusTester::indicatorSpinsWhileStreaming()
{
    QVERIFY(!spins());
    m_tester->ongoingRequest(true);
    QVERIFY(spins());
    m_tester->ongoingRequest(false);
    QVERIFY(!spins());
}

void tst_sbusTester::destructionWhileStreamingIsSilent()
{
    static QStringList messages;
    const QtMessageHandler previous = qInstallMessageHandler(
        [](QtMsgType, const QMessageLogContext &, const QString &text) { messages.append(text); });
    m_tester->ongoingRequest(true);
    m_tester.reset();
    qInstallMessageHandler(previous);
    QVERIFY2(messages.isEmpty(), qPrintable(messages.join(QLatin1Char('\n'))));
    QVERIFY(m_err.isEmpty());
}

QTEST_MAIN(tst_sbusTester)
#include "tst_sbustester.moc"
