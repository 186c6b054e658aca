#include "support/exchange.h"
#include "support/modal.h"
#include "support/records.h"

#include <QSignalSpy>

namespace {

const QString writeRefused = QStringLiteral("<<< ERROR writeData: serial port not open\n\n");

} // namespace

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
        time.start();
        e.send(COMIO_CMD_DO_FFC, "\1");
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
