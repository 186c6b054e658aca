#include "support/cameraend.h"
#include "support/captureddiagnostics.h"
#include "support/modal.h"
#include "support/records.h"
#include "support/windowundertest.h"

#include <QElapsedTimer>
#include <QLCDNumber>
#include <QPlainTextEdit>
#include <QSignalSpy>
#include <QSpinBox>
#include <QStatusBar>

namespace {

const QString notSent = QStringLiteral("<<< This should not have happened! Message was not send\n");
const QString writeRefused = QStringLiteral("<<< ERROR writeData: serial port not open\n\n");

QByteArray levels(quint16 first)
{
    QByteArray payload(32, '\0');
    for (int channel = 0; channel < 16; ++channel)
        records::put<quint16>(payload, 2 * channel, static_cast<quint16>(first + channel));
    return payload;
}

} // namespace

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

class TestMainWindowExchange : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { modal::useQtDialogs(); }

    // Stays first: only then has the process sent nothing yet.
    void nothingIsOutstandingBeforeTheFirstCommand()
    {
        CapturedDiagnostics lines;
        WindowUnderTest tool;
        QVERIFY(QMetaObject::invokeMethod(&tool.window, "slotMessageStateTimerComplete"));
        QVERIFY(lines.err().isEmpty());
        QVERIFY(lines.out().isEmpty());
    }

    void sendingFramesThePayloadAndTurnsTheIndicatorOn_data()
    {
        QTest::addColumn<QByteArray>("payload");
        QTest::addColumn<unsigned short>("part");
        QTest::addColumn<unsigned short>("count");
        QTest::addColumn<quint32>("command");
        const auto part = [](int number) { return static_cast<unsigned short>(number); };
        QTest::newRow("no payload") << QByteArray() << part(1) << part(1) << 102U;
        QTest::newRow("one byte, padded") << QByteArray("\1") << part(1) << part(1) << 124U;
        QTest::newRow("a record") << records::sealed(records::blend()) << part(1) << part(1)
                                  << 101U;
        QTest::newRow("part 2 of 3") << QByteArray("abcd") << part(2) << part(3) << 131U;
        QTest::newRow("all bits set") << QByteArray() << part(1) << part(1) << 0xFFFFFFFFU;
    }
    void sendingFramesThePayloadAndTurnsTheIndicatorOn()
    {
        QFETCH(QByteArray, payload);
        QFETCH(unsigned short, part);
        QFETCH(unsigned short, count);
        QFETCH(quint32, command);
        Exchange e;
        const QByteArray before = e.camera.received();
        QVERIFY(!e.tool.busy());
        e.send(static_cast<ComioInterfaceCommand_TypeDef>(command), payload, part, count);
        QVERIFY(e.tool.busy());
        QTRY_COMPARE(e.camera.received(), before + reference::frame(command, payload, part, count));
        QVERIFY(e.lines.out().isEmpty());
    }

    void acknowledgementEndsTheCommand()
    {
        Exchange e;
        e.send(COMIO_CMD_DO_FFC, "\1");
        e.camera.send(233);
        QTRY_VERIFY(!e.tool.busy());
        QCOMPARE(e.lines.out(), QStringLiteral("\n"));
    }

    void anotherSendReplacesTheOutstandingCommand()
    {
        Exchange e;
        e.send(COMIO_CMD_DO_FFC, "\1");
        e.send(COMIO_CMD_TRIGGER, "\1");
        e.camera.send(233); // the first one's acknowledgement, now anybody's message
        QTRY_COMPARE(e.lines.out(), QStringLiteral("\n"));
        QVERIFY(e.tool.busy());
        e.camera.send(224);
        QTRY_VERIFY(!e.tool.busy());
        QCOMPARE(e.camera.count(133), 2);
        QCOMPARE(e.camera.count(124), 1);
    }

    void indicatorChangesOncePerCommand()
    {
        Exchange e;
        auto *indicator = e.tool.get<QQuickWidget>("quickWidget")->rootObject();
        QSignalSpy changes(indicator, SIGNAL(runningChanged()));
        QVERIFY(changes.isValid());
        e.send(COMIO_CMD_DO_FFC, "\1");
        e.send(COMIO_CMD_TRIGGER, "\1");
        QCOMPARE(changes.count(), 1);
        e.camera.send(224);
        e.camera.send(224); // fits the outstanding command by the letter, a second time
        QTRY_COMPARE(e.lines.out(), QStringLiteral("\n\n"));
        QCOMPARE(changes.count(), 2);
    }

    void lateReplyIsReportedOnceAndStillEndsTheCommand()
    {
        Exchange e;
        QVERIFY(e.settle());
        QElapsedTimer time;
        e.send(COMIO_CMD_DO_FFC, "\1");
        time.start();
        QTRY_COMPARE(e.lines.err(), notSent);
        QVERIFY(time.elapsed() >= 90); // coarse timers may fire 5 % early
        QVERIFY(e.tool.busy());
        QTRY_VERIFY(time.elapsed() >= 150);
        QVERIFY(e.lines.out().isEmpty());
        e.camera.send(233);
        QTRY_VERIFY(!e.tool.busy());
        QCOMPARE(e.lines.err(), notSent);
        QCOMPARE(e.lines.out(), QStringLiteral("\n"));
        QCOMPARE(e.camera.count(133), 2); // nothing is repeated
    }

    void replyInTimeIsNotReported()
    {
        Exchange e;
        QElapsedTimer time;
        e.send(COMIO_CMD_DO_FFC, "\1");
        QVERIFY(QMetaObject::invokeMethod(
            &e.tool.window, "slotNewMessageReceived",
            Q_ARG(ComioInterfaceCommand_TypeDef, static_cast<ComioInterfaceCommand_TypeDef>(233)),
            Q_ARG(QVector<uint8_t>, {})));
        time.start();
        QTRY_VERIFY(time.elapsed() > 120);
        QVERIFY(e.lines.err().isEmpty());
        QVERIFY(!e.tool.busy());
    }

    void rejectionShowsItsBox()
    {
        Exchange e;
        e.send(COMIO_CMD_GET_CONFIG);
        QTRY_COMPARE(e.camera.count(102), 1);
        const QString before = e.lines.out();
        QVERIFY(before.isEmpty());
        e.camera.send(302);
        bool busy = true;
        QString title, text;
        QMessageBox::Icon icon = QMessageBox::NoIcon;
        QMessageBox::StandardButtons buttons;
        bool okIsDefault = false;
        Qt::WindowFlags flags;
        const QWidget *owner = nullptr;
        modal::Answer<QMessageBox> answer([&](QMessageBox *box) {
            busy = e.tool.busy();
            title = box->windowTitle();
            text = box->text();
            icon = box->icon();
            buttons = box->standardButtons();
            okIsDefault = box->defaultButton() == box->button(QMessageBox::Ok);
            flags = box->windowFlags();
            owner = box->parentWidget();
            box->button(QMessageBox::Ok)->click();
        });
        QTRY_VERIFY(e.lines.out().endsWith("\n\n"));
        QVERIFY(answer.given());
        QVERIFY(!busy); // settled before the operator has to answer
        QCOMPARE(title, QStringLiteral("Command rejected"));
        QCOMPARE(text, QStringLiteral("<p>Command was rejected</p>"));
        QCOMPARE(icon, QMessageBox::Warning);
        QCOMPARE(buttons, QMessageBox::StandardButtons(QMessageBox::Ok));
        QVERIFY(okIsDefault);
        // Qt adds the system menu to what it shows; the close button it does not.
        QCOMPARE(flags & ~Qt::WindowSystemMenuHint, Qt::Dialog | Qt::WindowTitleHint);
        QCOMPARE(owner, &e.tool.window);
        QCOMPARE(e.lines.out(), QStringLiteral("<<< Command failed!\n\n"));
        QVERIFY(!e.tool.busy());
    }

    void rejectionBoxIsAnsweredByKeys_data()
    {
        QTest::addColumn<int>("key");
        QTest::newRow("Return") << int(Qt::Key_Return);
        QTest::newRow("Escape, which the one button takes") << int(Qt::Key_Escape);
    }
    void rejectionBoxIsAnsweredByKeys()
    {
        QFETCH(int, key);
        Exchange e;
        e.send(COMIO_CMD_GET_CONFIG);
        e.camera.send(302);
        modal::Answer<QMessageBox> answer(
            [key](QMessageBox *box) { QTest::keyClick(box, static_cast<Qt::Key>(key)); });
        QTRY_COMPARE(e.lines.out(), QStringLiteral("<<< Command failed!\n\n"));
        QVERIFY(answer.given());
    }

    void rejectionBoxThatIsClosedEndsTheDispatch()
    {
        Exchange e;
        e.send(COMIO_CMD_GET_CONFIG);
        e.camera.send(302);
        modal::Answer<QMessageBox> answer(modal::cancel<QMessageBox>());
        QTRY_COMPARE(e.lines.out(), QStringLiteral("<<< Command failed!\n<<< dialog rejected\n"));
        QVERIFY(!e.tool.busy());
        e.camera.send(0);
        QTRY_COMPARE(e.lines.out(),
                     QStringLiteral("<<< Command failed!\n<<< dialog rejected\n"
                                    "<<< Device replied with COMIO_CMD_UNKNOWN\n\n"));
    }

    void rejectionOfAnotherCommandShowsNothing()
    {
        Exchange e;
        e.send(COMIO_CMD_GET_CONFIG);
        e.camera.send(301);
        QTRY_COMPARE(e.lines.out(), QStringLiteral("\n"));
        QVERIFY(e.tool.busy());
    }

    void rejectedCommandIsNotReportedAsUnsent()
    {
        Exchange e;
        QVERIFY(e.settle());
        QVERIFY(e.settle());
        QElapsedTimer time;
        bool passed = false;
        e.send(COMIO_CMD_GET_CONFIG);
        modal::Answer<QMessageBox> answer([&](QMessageBox *box) {
            passed = QTest::qWaitFor([&] { return time.elapsed() > 120; });
            box->button(QMessageBox::Ok)->click();
        });
        time.start();
        QVERIFY(QMetaObject::invokeMethod(
            &e.tool.window, "slotNewMessageReceived",
            Q_ARG(ComioInterfaceCommand_TypeDef, static_cast<ComioInterfaceCommand_TypeDef>(302)),
            Q_ARG(QVector<uint8_t>, {})));
        QVERIFY(answer.given() && passed);
        QVERIFY(e.lines.err().isEmpty());
    }

    void allOnesCommandIsAcknowledgedAt99()
    {
        Exchange e;
        e.send(COMIO_CMD_ALL_BITS_SET);
        e.camera.send(100);
        QTRY_COMPARE(e.lines.out(), QStringLiteral("\n"));
        QVERIFY(e.tool.busy());
        e.camera.send(99);
        QTRY_VERIFY(!e.tool.busy());
        QCOMPARE(e.lines.out(), QStringLiteral("\n\n"));
    }

    void allOnesCommandIsRejectedAt199()
    {
        Exchange e;
        e.send(COMIO_CMD_ALL_BITS_SET);
        e.camera.send(199);
        modal::Answer<QMessageBox> answer(modal::click(QMessageBox::Ok));
        QTRY_COMPARE(e.lines.out(), QStringLiteral("<<< Command failed!\n\n"));
        QVERIFY(!e.tool.busy());
    }

    void acknowledgedWriteIsFollowedByTheAllOnesCommand()
    {
        Exchange e;
        e.send(COMIO_CMD_SET_CONFIG, records::sealed(records::blend()));
        QTRY_COMPARE(e.camera.count(101), 1);
        const QByteArray before = e.camera.received();
        e.camera.send(201);
        QTRY_COMPARE(e.camera.received(), before + reference::frame(0xFFFFFFFF, {}));
        QVERIFY(e.tool.busy());
        QCOMPARE(e.lines.out(), QStringLiteral("\n"));
        e.camera.send(99);
        QTRY_VERIFY(!e.tool.busy());
    }

    void unaskedWriteAcknowledgementSendsTheAllOnesCommandToo()
    {
        Exchange e;
        e.send(COMIO_CMD_GET_CONFIG);
        e.camera.send(201);
        QTRY_COMPARE(e.camera.commands(), (QVector<quint32>{116, 133, 102, 0xFFFFFFFF}));
        e.camera.send(99);
        QTRY_VERIFY(!e.tool.busy());
    }

    void recordReplyFillsTheForm_data()
    {
        QTest::addColumn<quint32>("code");
        QTest::newRow("202") << 202U;
        QTest::newRow("208, never asked for") << 208U;
    }
    void recordReplyFillsTheForm()
    {
        QFETCH(quint32, code);
        Exchange e;
        e.send(COMIO_CMD_GET_CONFIG);
        QByteArray record = records::blend();
        record[57] = 3; // colour map
        e.camera.send(code, records::sealed(record));
        QTRY_COMPARE(e.tool.get<QComboBox>("cbLiveview_colormap")->currentIndex(), 3);
        QTRY_COMPARE(e.lines.out(), QStringLiteral("\n"));
        QCOMPARE(e.tool.busy(), code != 202);
    }

    void invalidRecordReplyClosesThePort()
    {
        Exchange e;
        e.camera.send(202, QByteArray(12, '\0'));
        QTRY_COMPARE(e.tool.get<QPushButton>("btConnectDisconnect")->text(),
                     QStringLiteral("Connect"));
        QVERIFY(
            e.lines.err().endsWith("MainWindow::parseUnknownControlStruct() not a valid struct\n"));
        QVERIFY(e.lines.out().endsWith("\n\n")); // the end of the message
    }

    void serialReplyIsLogged()
    {
        Exchange e;
        e.camera.send(210);
        QTRY_COMPARE(e.lines.out(),
                     QStringLiteral("<<< Device replied with COMIO_CMD_SET_SERIAL_REPLY_OK\n\n"));
    }

    void factoryReplyGoesToTheFactorySettings()
    {
        Exchange e;
        QVERIFY(e.tool.chooseModel(0xC92A6CE6));
        e.lines.clear();
        e.camera.send(211, QByteArray(28, '\0'));
        QTRY_COMPARE(e.lines.out(), QStringLiteral("\n"));
        QCOMPARE(
            e.lines.err(),
            QStringLiteral("FactorySettings::parseFactorySettings() Record too short: 28 bytes\n"));
    }

    void identityReplyIdentifiesTheCamera()
    {
        Exchange e;
        e.camera.send(216, CameraEnd::identity(0xC92A6CE6));
        QTRY_COMPARE(e.tool.window.statusBar()->currentMessage(),
                     QStringLiteral("Device ID: QX Blend   Serial: 1701234"));
        QTRY_COMPARE(e.camera.count(102), 1);
        QVERIFY(e.tool.busy());
        QVERIFY(e.lines.out().endsWith("\n\n"));
    }

    void levelReplyGoesToTheSbusTester_data()
    {
        QTest::addColumn<quint32>("code");
        QTest::newRow("220") << 220U;
        QTest::newRow("223") << 223U;
    }
    void levelReplyGoesToTheSbusTester()
    {
        QFETCH(quint32, code);
        Exchange e;
        e.camera.send(code, levels(1000));
        QTRY_COMPARE(e.lines.out(), QStringLiteral("sbusTester::parseSbusLevels()\n\n"));
        QCOMPARE(e.tool.get<QLCDNumber>("lcd1")->intValue(), 1000);
        QCOMPARE(e.tool.get<QLCDNumber>("lcd16")->intValue(), 1015);
    }

    void levelReplyLeavesAnotherOutstandingCommandAlone()
    {
        Exchange e;
        e.send(COMIO_CMD_GET_CONFIG);
        e.camera.send(223, levels(200));
        QTRY_COMPARE(e.tool.get<QLCDNumber>("lcd2")->intValue(), 201);
        QVERIFY(e.tool.busy());
        e.camera.send(202, records::sealed(records::blend()));
        QTRY_VERIFY(!e.tool.busy());
    }

    void gpsTextIsAppended_data()
    {
        QTest::addColumn<QByteArray>("payload");
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("err");
        QTest::newRow("up to its zero byte")
            << QByteArray("$GPRMC\0\0", 8) << "before\n$GPRMC" << QString();
        QTest::newRow("nothing after the first zero byte")
            << QByteArray("ab\0cdef\0", 8) << "before\nab" << QString();
        QTest::newRow("Latin-1") << QByteArray("5\xB0 \xE4\xFF\0\0\0", 8)
                                 << QStringLiteral("before\n5\u00B0 \u00E4\u00FF") << QString();
        QTest::newRow("empty") << QByteArray(4, '\0') << "before\n" << QString();
        QTest::newRow("without an end")
            << QByteArray("abcd") << "before\nabcd"
            << QStringLiteral("<<< GPS text without an end, cut after 4 bytes\n");
        QTest::newRow("without a payload")
            << QByteArray() << "before\n"
            << QStringLiteral("<<< GPS text without an end, cut after 0 bytes\n");
    }
    void gpsTextIsAppended()
    {
        QFETCH(QByteArray, payload);
        QFETCH(QString, text);
        QFETCH(QString, err);
        Exchange e;
        e.camera.send(226, "before");
        e.camera.send(226, payload);
        QTRY_COMPARE(e.gpsText(), text);
        QTRY_COMPARE(e.lines.out(), QStringLiteral("\n\n"));
        QCOMPARE(e.errors(), err);
        QVERIFY(e.tool.get<QPlainTextEdit>("pteGPSstream")->isReadOnly());
    }

    void focusReplyIsASignedByte_data()
    {
        QTest::addColumn<QByteArray>("payload");
        QTest::addColumn<int>("value");
        QTest::newRow("0") << QByteArray("\0\0\0\0", 4) << 0;
        QTest::newRow("31") << QByteArray("\x1F") << 31;
        QTest::newRow("-1") << QByteArray("\xFF") << -1;
        QTest::newRow("-31") << QByteArray("\xE1") << -31;
        QTest::newRow("only the first byte counts") << QByteArray("\5\6\7\1") << 5;
        QTest::newRow("127, above the box's range") << QByteArray("\x7F") << 31;
        QTest::newRow("-128, below it") << QByteArray("\x80") << -31;
    }
    void focusReplyIsASignedByte()
    {
        QFETCH(QByteArray, payload);
        QFETCH(int, value);
        Exchange e;
        e.camera.send(228, payload);
        QTRY_COMPARE(e.lines.out(), QStringLiteral("\n"));
        QCOMPARE(e.tool.get<QSpinBox>("sbVLCFocusAdjustment")->value(), value);
        QVERIFY(e.errors().isEmpty());
    }

    void focusReplyWithoutAValueChangesNothing()
    {
        Exchange e;
        e.tool.get<QSpinBox>("sbVLCFocusAdjustment")->setValue(7);
        e.camera.send(228);
        QTRY_COMPARE(e.lines.out(), QStringLiteral("\n"));
        QCOMPARE(e.tool.get<QSpinBox>("sbVLCFocusAdjustment")->value(), 7);
        QCOMPARE(e.errors().count('\n'), 1);
    }

    void unknownCommandIsLoggedAndLeavesTheIndicator()
    {
        Exchange e;
        e.send(COMIO_CMD_GET_CONFIG);
        e.camera.send(0);
        QTRY_COMPARE(e.lines.out(),
                     QStringLiteral("<<< Device replied with COMIO_CMD_UNKNOWN\n\n"));
        QVERIFY(e.tool.busy());
    }

    void damagedFrameIsIgnored()
    {
        Exchange e;
        e.send(COMIO_CMD_GET_CONFIG);
        QByteArray frame = reference::frame(228, "\5");
        frame[16] = '\6';
        QVERIFY(e.camera.sendBytes(frame));
        QTRY_COMPARE(e.lines.out(),
                     QStringLiteral("<<< ERROR crc service: data invalid\n"
                                    "kovoPacketManager::slotPacketStateMachine() CRC invalid\n\n"));
        QCOMPARE(e.tool.get<QSpinBox>("sbVLCFocusAdjustment")->value(), -10);
        QVERIFY(e.tool.busy());
        QVERIFY(QMetaObject::invokeMethod(&e.tool.window, "slotDummy")); // the window goes on
    }

    void codesOfNoMeaningDoNothing()
    {
        Exchange e;
        e.send(COMIO_CMD_GET_CONFIG); // acknowledged at 202, rejected at 302: by none of these
        for (const quint32 code :
             {1U,   2U,   99U,  100U, 101U, 116U, 126U,        199U,       200U, 203U, 204U,
              205U, 206U, 207U, 209U, 212U, 213U, 214U,        215U,       217U, 218U, 219U,
              221U, 222U, 224U, 225U, 227U, 229U, 230U,        231U,       233U, 255U, 299U,
              300U, 301U, 310U, 316U, 355U, 458U, 0x7FFFFFFFU, 0xFFFFFFFFU}) {
            e.lines.clear();
            e.camera.send(code, QByteArray(32, '\x55'));
            const bool ended = QTest::qWaitFor([&] { return !e.lines.out().isEmpty(); });
            const bool nothing = e.lines.out() == "\n" && e.errors().isEmpty() && e.tool.busy();
            QVERIFY2(ended && nothing, qPrintable(QString::number(code)));
        }
        QVERIFY(e.gpsText().isEmpty());
        QCOMPARE(e.tool.get<QSpinBox>("sbVLCFocusAdjustment")->value(), -10);
        QCOMPARE(e.tool.get<QLCDNumber>("lcd1")->intValue(), 0);
        QCOMPARE(e.tool.window.statusBar()->currentMessage(), QStringLiteral("KoVo"));
        QCOMPARE(e.camera.commands(), (QVector<quint32>{116, 133, 102}));
    }

    void everyMessageEndsWithAnEmptyLine()
    {
        Exchange e;
        e.camera.sendBytes(reference::frame(233, {}) + reference::frame(0, {}) +
                           reference::frame(210, {}) + reference::frame(999, {}));
        QTRY_COMPARE(e.lines.out(),
                     QStringLiteral("\n<<< Device replied with COMIO_CMD_UNKNOWN\n\n"
                                    "<<< Device replied with COMIO_CMD_SET_SERIAL_REPLY_OK\n\n"
                                    "\n"));
    }

    void messagesArriveWhileABoxIsOpen()
    {
        Exchange e;
        e.send(COMIO_CMD_GET_CONFIG);
        const QByteArray two = reference::frame(226, "two");
        // The box opens in the middle of these bytes.
        QVERIFY(e.camera.sendBytes(reference::frame(302, {}) + reference::frame(226, "one") +
                                   two.left(17)));
        QString seen;
        bool arrived = false;
        modal::Answer<QMessageBox> answer([&](QMessageBox *box) {
            e.camera.sendBytes(two.mid(17) + reference::frame(226, "three"));
            arrived = QTest::qWaitFor([&] { return e.gpsText().endsWith("three"); });
            seen = e.gpsText();
            box->button(QMessageBox::Ok)->click();
        });
        QTRY_VERIFY(answer.given());
        QVERIFY(arrived);
        QCOMPARE(seen, QStringLiteral("one\ntwo\nthree"));
        e.camera.send(226, "four");
        QTRY_COMPARE(e.gpsText(), QStringLiteral("one\ntwo\nthree\nfour"));
        // Three messages inside the box, then the rejection's own end, then the fourth.
        QTRY_COMPARE(e.lines.out(), QStringLiteral("<<< Command failed!\n\n\n\n\n\n"));
    }

    void whatFollowsARejectionInOneChunkIsNotLost()
    {
        Exchange e;
        e.send(COMIO_CMD_GET_CONFIG);
        QVERIFY(e.camera.sendBytes(reference::frame(302, {}) + reference::frame(226, "one") +
                                   reference::frame(226, "two")));
        modal::Answer<QMessageBox> answer(modal::click(QMessageBox::Ok));
        QTRY_COMPARE(e.gpsText(), QStringLiteral("one\ntwo"));
        QVERIFY(answer.given());
        QCOMPARE(e.lines.out(), QStringLiteral("<<< Command failed!\n\n\n\n"));
    }

    void rejectionWhileTheBoxIsOpenOpensASecondBox()
    {
        Exchange e;
        e.send(COMIO_CMD_GET_CONFIG);
        e.camera.send(302);
        bool second = false;
        bool arrived = false;
        modal::Answer<QMessageBox> outer([&](QMessageBox *box) {
            QTimer look;
            connect(&look, &QTimer::timeout, box, [&] {
                auto *other = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
                if (other && other != box) {
                    second = true;
                    other->button(QMessageBox::Ok)->click();
                }
            });
            look.start(5);
            e.camera.sendBytes(reference::frame(302, {}) + reference::frame(226, "after"));
            arrived = QTest::qWaitFor([&] { return e.gpsText() == "after"; });
            box->button(QMessageBox::Ok)->click();
        });
        QTRY_VERIFY(outer.given());
        QVERIFY(second);
        QVERIFY(arrived);
        QTRY_COMPARE(e.lines.out().count("<<< Command failed!\n"), 2);
        QCOMPARE(e.gpsText(), QStringLiteral("after"));
    }

    void commandsCanBeSentWhileABoxIsOpen()
    {
        Exchange e;
        e.send(COMIO_CMD_GET_CONFIG);
        e.camera.send(302);
        bool sent = false;
        bool settled = false;
        modal::Answer<QMessageBox> answer([&](QMessageBox *box) {
            // The acknowledgement of a write sends without the operator.
            e.camera.send(201);
            sent = QTest::qWaitFor([&] { return e.camera.count(0xFFFFFFFF) == 1; });
            e.camera.send(99);
            settled = QTest::qWaitFor([&] { return !e.tool.busy(); });
            box->accept();
        });
        QTRY_VERIFY(answer.given());
        QVERIFY(sent && settled);
        QVERIFY(!e.tool.busy());
    }

    void readyFramesPassWithoutBookkeeping()
    {
        Exchange e;
        const QByteArray before = e.camera.received();
        QVERIFY(QMetaObject::invokeMethod(&e.tool.window, "slotSendPacket",
                                          Q_ARG(QByteArray, QByteArray("any bytes\0\xFF", 11))));
        QTRY_COMPARE(e.camera.received(), before + QByteArray("any bytes\0\xFF", 11));
        QVERIFY(!e.tool.busy());
        // The command outstanding before is still the one that an answer settles.
        e.send(COMIO_CMD_TRIGGER, "\1");
        QVERIFY(QMetaObject::invokeMethod(&e.tool.window, "slotSendPacket",
                                          Q_ARG(QByteArray, reference::frame(111, {}))));
        e.camera.send(224);
        QTRY_VERIFY(!e.tool.busy());
    }

    void companionsSendThroughTheWindow()
    {
        Exchange e;
        const QByteArray before = e.camera.received();
        auto *tester = e.tool.window.findChild<QWidget *>("sbusTester");
        QVERIFY(tester);
        QVERIFY(QMetaObject::invokeMethod(tester, "slotTimerRequestSbusLevels"));
        QTRY_COMPARE(e.camera.received(), before + reference::frame(123, {}));
        QVERIFY(!e.tool.busy());
        e.camera.send(223, levels(7));
        QTRY_COMPARE(e.tool.get<QLCDNumber>("lcd1")->intValue(), 7);
    }

    void sendingWhileDisconnectedIsOnlyLogged()
    {
        CapturedDiagnostics lines;
        WindowUnderTest tool;
        tool.window.slotSendMessage(nullptr, 0, 1, 1, COMIO_CMD_GET_CONFIG);
        QCOMPARE(lines.out(), writeRefused);
        QVERIFY(tool.busy());
        QTRY_COMPARE(lines.err(), notSent);
        QVERIFY(tool.busy());
        lines.clear();
        QVERIFY(QMetaObject::invokeMethod(&tool.window, "slotSendPacket",
                                          Q_ARG(QByteArray, reference::frame(123, {}))));
        QCOMPARE(lines.out(), writeRefused);
    }

    void disconnectingTurnsTheIndicatorOff()
    {
        Exchange e;
        e.send(COMIO_CMD_GET_CONFIG);
        QVERIFY(e.tool.busy());
        e.tool.get<QPushButton>("btConnectDisconnect")->click();
        QVERIFY(!e.tool.busy());
    }

    void dummyWritesItsName()
    {
        CapturedDiagnostics lines;
        WindowUnderTest tool;
        QVERIFY(QMetaObject::invokeMethod(&tool.window, "slotDummy"));
        QCOMPARE(lines.out(), QStringLiteral("MainWindow::slotDummy()\n"));
        QVERIFY(lines.err().isEmpty());
    }
};

QTEST_MAIN(TestMainWindowExchange)
#include "tst_mainwindow_exchange.moc"
