#include "app/SessionState.h"
#include "app/commandTitle.h"

#include <QSignalSpy>
#include <QTest>

/// The words for connection and last command, without a window: the test is the clock and the line.
class TestSessionState : public QObject
{
    Q_OBJECT

    static constexpr quint32 setConfig = 101;
    static constexpr quint32 getConfig = 102;
    static constexpr quint32 setFactory = 110;
    static constexpr quint32 getIdentity = 116;
    static constexpr quint32 liveSettings = 122;
    static constexpr quint32 sbusLevels = 123;
    static constexpr quint32 ffc = 133;
    static constexpr quint32 unprompted = 0xFFFFFFFF;

    const QString m_earlierValue =
        "The camera still shows the earlier value: Settings-Preview sends it";
    qint64 m_now = 0;
    std::unique_ptr<SessionState> m_state;

    void connectUnit(const QString &serial = "1701234")
    {
        m_state->opened("ttyACM0");
        m_state->sent(getIdentity, true);
        m_state->received(getIdentity + 100);
        m_state->identified("QX Blend Zoom", serial, 20190801);
        m_state->sent(getConfig, true);
        m_state->received(getConfig + 100);
        m_state->configurationRead();
    }

private slots:
    void init()
    {
        m_now = 1000;
        m_state = std::make_unique<SessionState>(nullptr, [this] { return m_now; });
    }

    void textsOfTheLineKeepToOneLine()
    {
        m_state->opened("tty\nACM0");
        QCOMPARE(
            m_state->connection(),
            QString::fromUtf8("tty\\x0aACM0 · no camera identified · configuration never read"));
        m_state->identified("QX\rBlend", "17\x1b[2J", 20190801);
        m_state->configurationRead();
        QCOMPARE(m_state->connection(), QString::fromUtf8("tty\\x0aACM0 · QX\\x0dBlend · "
                                                          "17\\x1b[2J · firmware 20190801"));
    }

    void connectionIsToldStepByStep()
    {
        QCOMPARE(m_state->connection(), QString("Not connected"));
        QCOMPARE(m_state->lastCommand(), QString());
        m_state->opened("ttyACM0");
        QCOMPARE(m_state->connection(),
                 QString::fromUtf8("ttyACM0 · no camera identified · configuration never read"));
        m_state->identified("QX Blend Zoom", "1701234", 20190801);
        QCOMPARE(m_state->connection(), QString::fromUtf8("ttyACM0 · QX Blend Zoom · 1701234 · "
                                                          "firmware 20190801 · configuration never "
                                                          "read"));
        m_state->configurationRead();
        QCOMPARE(m_state->connection(),
                 QString::fromUtf8("ttyACM0 · QX Blend Zoom · 1701234 · firmware 20190801"));
        m_state->closed();
        QCOMPARE(m_state->connection(), QString("Not connected"));
        QCOMPARE(m_state->connectionDetails(),
                 QString::fromUtf8("Not connected. Last connection: ttyACM0 · QX Blend Zoom · "
                                   "1701234 · firmware 20190801"));
        m_state->opened("ttyACM1");
        QCOMPARE(m_state->connection(),
                 QString::fromUtf8("ttyACM1 · no camera identified · configuration never read"));
    }

    void controlCharactersOfACameraStayInOneLine()
    {
        m_state->opened("ttyACM0");
        m_state->identified("QX Blend", "17\n01\x1b[2J", 20190801);
        QVERIFY(!m_state->connection().contains('\n'));
        QVERIFY(!m_state->connection().contains('\x1b'));
    }

    void endsOfACommand()
    {
        connectUnit();
        m_state->sent(ffc, true);
        QCOMPARE(m_state->lastCommand(), QString("Flat-field correction: sent"));
        m_now += 999;
        QCOMPARE(m_state->lastCommand(), QString("Flat-field correction: sent"));
        m_now += 1;
        QCOMPARE(m_state->lastCommand(), QString("Flat-field correction: no answer for 1 s"));
        m_now += 61000;
        QCOMPARE(m_state->lastCommand(), QString("Flat-field correction: no answer for 62 s"));
        QVERIFY(m_state->isWaiting());
        m_state->received(ffc + 100);
        QCOMPARE(m_state->lastCommand(), QString("Flat-field correction: acknowledged"));
        QVERIFY(!m_state->isWaiting());
        m_state->sent(ffc, true);
        m_state->received(ffc + 200);
        QCOMPARE(m_state->lastCommand(), QString("Flat-field correction: refused by the camera"));
        m_state->sent(ffc, true);
        m_state->received(0);
        QCOMPARE(m_state->lastCommand(), QString("Flat-field correction: not known to the camera"));
        m_state->sent(ffc, true);
        m_state->closed();
        QCOMPARE(m_state->lastCommand(),
                 QString("Flat-field correction: no answer before the port closed"));
        m_state->sent(ffc, false);
        QCOMPARE(m_state->lastCommand(),
                 QString("Flat-field correction: not sent, no port is open"));
        QVERIFY(!m_state->isWaiting());
    }

    void storedRefusedAndLostWritesReadDifferently_data()
    {
        QTest::addColumn<quint32>("command");
        QTest::addColumn<QString>("stored");
        QTest::newRow("configuration")
            << setConfig << "Write configuration: acknowledged, the camera restarts";
        QTest::newRow("factory settings") << setFactory << "Write factory settings: acknowledged";
    }

    void storedRefusedAndLostWritesReadDifferently()
    {
        QFETCH(quint32, command);
        QFETCH(QString, stored);
        const QString title = commandTitle(command);
        connectUnit();
        m_state->sent(command, true);
        m_state->closed();
        QCOMPARE(m_state->lastCommand(), title + ": no answer before the port closed");
        connectUnit();
        m_state->sent(command, true);
        m_state->received(command + 200);
        QCOMPARE(m_state->lastCommand(), title + ": refused by the camera");
        m_state->sent(command, true);
        m_state->received(command + 100);
        QCOMPARE(m_state->lastCommand(), stored);
    }

    void whatFollowsAWriteByItselfDoesNotHideIt()
    {
        connectUnit();
        m_state->sent(setConfig, true);
        m_state->received(setConfig + 100);
        m_state->sent(unprompted, true);
        const QString stored = "Write configuration: acknowledged, the camera restarts";
        QCOMPARE(m_state->lastCommand(), stored);
        m_now += 5000;
        QCOMPARE(m_state->lastCommand(), stored);
        m_state->received(99);
        m_state->closed();
        QCOMPARE(m_state->lastCommand(), stored);
    }

    void pollingNeitherHidesNorFloods()
    {
        connectUnit();
        m_state->sent(ffc, true);
        QSignalSpy changes(m_state.get(), &SessionState::changed);
        for (int i = 0; i < 10; ++i) {
            m_state->sent(sbusLevels, true);
            m_state->received(sbusLevels + 100);
        }
        QCOMPARE(m_state->lastCommand(), QString("Flat-field correction: sent"));
        QCOMPARE(changes.count(), 0);
        // It does not know the poll, which says nothing of the command.
        m_state->sent(sbusLevels, true);
        m_state->received(0);
        QCOMPARE(m_state->lastCommand(), QString("Flat-field correction: sent"));
    }

    void writeWithoutAnswerStaysInViewUntilItIsRepeated()
    {
        connectUnit();
        m_state->sent(setFactory, true);
        m_now += 7000;
        m_state->sent(ffc, true);
        m_state->received(ffc + 100);
        QCOMPARE(m_state->lastCommand(),
                 QString::fromUtf8("Write factory settings: no answer for 7 s · Flat-field "
                                   "correction: acknowledged"));
        m_state->closed();
        connectUnit();
        QCOMPARE(
            m_state->lastCommand(),
            QString::fromUtf8("Write factory settings: no answer before the port closed · Read "
                              "configuration: acknowledged"));
        m_state->sent(setFactory, true);
        m_state->received(setFactory + 100);
        QCOMPARE(m_state->lastCommand(), QString("Write factory settings: acknowledged"));
        m_state->sent(ffc, true);
        QCOMPARE(m_state->lastCommand(), QString("Flat-field correction: sent"));
    }

    void lateAnswerSettlesAWriteBehindLaterCommands()
    {
        connectUnit();
        m_state->sent(setFactory, true);
        m_state->sent(ffc, true);
        m_state->received(ffc + 100);
        m_state->received(setFactory + 100);
        QCOMPARE(m_state->lastCommand(), QString("Flat-field correction: acknowledged"));
    }

    void anotherUnitEndsWhatWasLostOnTheLastOne()
    {
        connectUnit();
        m_state->sent(setConfig, true);
        m_state->closed();
        connectUnit("1705678");
        QCOMPARE(m_state->lastCommand(), QString("Read configuration: acknowledged"));
    }

    void oneAnswerDoesNotSettleTwoWrites()
    {
        connectUnit();
        m_state->sent(setFactory, true);
        m_now += 100;
        m_state->sent(setFactory, true);
        m_state->received(setFactory + 100);
        QCOMPARE(m_state->lastCommand(), QString("Write factory settings: sent"));
        m_state->received(setFactory + 100);
        QCOMPARE(m_state->lastCommand(), QString("Write factory settings: acknowledged"));
        // One that got no answer for long gets none any more.
        m_state->sent(setFactory, true);
        m_now += 10000;
        m_state->sent(setFactory, true);
        m_state->received(setFactory + 100);
        QCOMPARE(m_state->lastCommand(), QString("Write factory settings: acknowledged"));
    }

    void unaskedAnswersChangeNothing()
    {
        connectUnit();
        const QString before = m_state->lastCommand();
        QSignalSpy changes(m_state.get(), &SessionState::changed);
        for (const quint32 code : {201U, 226U, 301U, 310U, 1U, 99U})
            m_state->received(code);
        QCOMPARE(m_state->lastCommand(), before);
        QCOMPARE(changes.count(), 0);
    }

    void refusedRecordIsToldWithItsDefect()
    {
        m_state->opened("ttyACM0");
        m_state->sent(getConfig, true);
        m_state->received(getConfig + 100);
        m_state->closed();
        m_state->configurationRefused("wrong checksum");
        QCOMPARE(m_state->lastCommand(),
                 QString("Read configuration: not usable, wrong checksum; the port was closed"));
    }

    void droppedLiveSettingsAreToldUntilTheCameraHasThem_data()
    {
        QTest::addColumn<quint32>("command");
        QTest::newRow("live settings") << liveSettings;
        QTest::newRow("configuration") << setConfig;
    }

    void droppedLiveSettingsAreToldUntilTheCameraHasThem()
    {
        QFETCH(quint32, command);
        const QString dropped =
            "The camera still shows the earlier value: Settings-Preview sends it";
        connectUnit();
        m_state->liveSettingsDropped();
        m_state->liveSettingsDropped();
        QVERIFY(m_state->lastCommand().startsWith(dropped));
        QCOMPARE(m_state->lastCommand().count(dropped), 1);
        m_state->sent(ffc, true);
        QVERIFY(m_state->lastCommand().startsWith(dropped));
        m_state->sent(command, true);
        m_state->received(command + 100);
        QVERIFY(!m_state->lastCommand().contains(dropped));
        m_state->liveSettingsDropped();
        m_state->closed();
        QVERIFY(!m_state->lastCommand().contains(dropped));
        m_state->liveSettingsDropped();
        QVERIFY(!m_state->lastCommand().contains(dropped));
    }

    void repeatedPreviewEndsADroppedChange()
    {
        connectUnit();
        m_state->sent(liveSettings, true);
        m_state->received(liveSettings + 100);
        m_state->liveSettingsDropped();
        QVERIFY(m_state->lastCommand().startsWith(m_earlierValue));
        m_state->sent(liveSettings, true);
        QCOMPARE(m_state->lastCommand(), QString("Live settings: sent"));
        m_state->received(liveSettings + 100);
        QCOMPARE(m_state->lastCommand(), QString("Live settings: acknowledged"));
        m_state->sent(ffc, true);
        QCOMPARE(m_state->lastCommand(), QString("Flat-field correction: sent"));
    }

    void dropBehindLiveSettingsOnTheirWayStays()
    {
        connectUnit();
        m_state->sent(liveSettings, true);
        m_state->liveSettingsDropped();
        m_state->received(liveSettings + 100);
        m_state->sent(ffc, true);
        QCOMPARE(m_state->lastCommand(),
                 m_earlierValue + QString::fromUtf8(" · Flat-field correction: sent"));
    }

    void liveSettingsThatTheCameraDidNotTakeAreADroppedChange_data()
    {
        QTest::addColumn<quint32>("answer");
        QTest::newRow("refused") << liveSettings + 200;
        QTest::newRow("not known") << 0U;
        QTest::newRow("lost") << 1U; // says nothing of a command
    }

    void liveSettingsThatTheCameraDidNotTakeAreADroppedChange()
    {
        QFETCH(quint32, answer);
        connectUnit();
        m_state->sent(liveSettings, true);
        m_state->received(answer);
        m_now += 5000;
        QVERIFY(m_state->lastCommand().startsWith("Live settings: "));
        m_state->sent(ffc, true);
        m_state->received(ffc + 100);
        QCOMPARE(m_state->lastCommand(),
                 m_earlierValue + QString::fromUtf8(" · Flat-field correction: acknowledged"));
        m_state->sent(liveSettings, true);
        QCOMPARE(m_state->lastCommand(), QString("Live settings: sent"));
        m_state->received(liveSettings + 100);
        m_state->sent(ffc, true);
        QCOMPARE(m_state->lastCommand(), QString("Flat-field correction: sent"));
        m_state->sent(liveSettings, true);
        m_state->received(answer);
        m_state->closed();
        connectUnit("1705678"); // which shows something else
        QVERIFY(!m_state->lastCommand().contains(m_earlierValue));
    }

    void liveSettingsOnTheirWayAreWaitedForBehindTheNextCommand()
    {
        connectUnit();
        m_state->sent(liveSettings, true);
        m_state->sent(ffc, true);
        QCOMPARE(m_state->lastCommand(),
                 QString::fromUtf8("Live settings: sent · Flat-field correction: sent"));
        m_state->received(liveSettings + 100);
        QCOMPARE(m_state->lastCommand(), QString("Flat-field correction: sent"));
    }

    void lostWriteOfAnUnidentifiedCameraStaysUntilAnotherUnit()
    {
        m_state->opened("ttyACM0");
        m_state->sent(setFactory, true);
        m_state->closed();
        connectUnit();
        QVERIFY(m_state->lastCommand().startsWith(
            "Write factory settings: no answer before the port closed"));
        connectUnit("1705678");
        QCOMPARE(m_state->lastCommand(), QString("Read configuration: acknowledged"));
    }

    void refusedRestartIsTold_data()
    {
        QTest::addColumn<quint32>("answer");
        QTest::newRow("refused") << unprompted + 200;
        QTest::newRow("not known") << 0U;
    }

    void refusedRestartIsTold()
    {
        QFETCH(quint32, answer);
        const QString refused = "Write configuration: acknowledged, restart refused";
        connectUnit();
        m_state->sent(setConfig, true);
        m_state->received(setConfig + 100);
        m_state->sent(unprompted, true);
        QSignalSpy changes(m_state.get(), &SessionState::changed);
        m_state->received(answer);
        QCOMPARE(changes.count(), 1);
        QCOMPARE(m_state->lastCommand(), refused);
        m_state->sent(ffc, true);
        QCOMPARE(m_state->lastCommand(),
                 refused + QString::fromUtf8(" · Flat-field correction: sent"));
        // Behind another command.
        m_state->sent(setConfig, true);
        m_state->received(setConfig + 100);
        m_state->sent(unprompted, true);
        m_state->sent(ffc, true);
        m_state->received(answer);
        QCOMPARE(m_state->lastCommand(),
                 refused + QString::fromUtf8(" · Flat-field correction: sent"));
    }

    void answerOfAnEarlierWriteDoesNotSettleALostOne()
    {
        connectUnit();
        m_state->sent(setFactory, true);
        m_state->sent(setFactory, true);
        m_state->received(setFactory + 200);
        QCOMPARE(m_state->lastCommand(), QString("Write factory settings: refused by the camera"));
        m_state->sent(setFactory, true);
        m_state->received(setFactory + 100); // the second one's
        QCOMPARE(m_state->lastCommand(), QString("Write factory settings: sent"));
        m_now += 3000;
        QCOMPARE(m_state->lastCommand(), QString("Write factory settings: no answer for 3 s"));
        m_state->received(setFactory + 100);
        QCOMPARE(m_state->lastCommand(), QString("Write factory settings: acknowledged"));
    }

    void pollThatIsRefusedOrLostExcusesNoWrite_data()
    {
        QTest::addColumn<bool>("refused");
        QTest::newRow("refused") << true;
        QTest::newRow("lost") << false;
    }

    void pollThatIsRefusedOrLostExcusesNoWrite()
    {
        QFETCH(bool, refused);
        connectUnit();
        m_state->sent(sbusLevels, true);
        if (refused)
            m_state->received(sbusLevels + 200);
        else
            m_now += 5000;
        m_state->sent(setFactory, true);
        m_state->received(0);
        QCOMPARE(m_state->lastCommand(),
                 QString("Write factory settings: not known to the camera"));
    }

    void liveSettingsOfAClosedPortAreNoCommand()
    {
        m_state->sent(liveSettings, false);
        QCOMPARE(m_state->lastCommand(), QString());
    }

    void stalledLineIsTold()
    {
        connectUnit();
        const QString before = m_state->connection();
        m_state->setWriteStalled(true);
        QCOMPARE(m_state->connection(),
                 QString::fromUtf8("ttyACM0 · does not take what is sent · QX Blend Zoom · 1701234 "
                                   "· firmware 20190801"));
        m_state->setWriteStalled(false);
        QCOMPARE(m_state->connection(), before);
    }

    void everyCommandThatTheToolSendsHasATitle()
    {
        for (const quint32 command : {101U, 102U, 110U, 111U, 116U, 117U, 122U, 123U, 124U, 125U,
                                      128U, 130U, 131U, 133U, 155U})
            QVERIFY2(!commandTitle(command).startsWith("Command "),
                     qPrintable(commandTitle(command)));
        QCOMPARE(commandTitle(177), QString("Command 177"));
    }
};

QTEST_GUILESS_MAIN(TestSessionState)
#include "tst_sessionstate.moc"
