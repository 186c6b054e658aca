// Boxes that messages of the camera open, and what arrives, closes or vanishes while they are open.

#include "support/exchange.h"
#include "support/factoryrecords.h"
#include "support/modal.h"
#include "support/records.h"
#include "support/wire.h"

#include <QStatusBar>

#include <functional>
#include <thread>

namespace {

constexpr int mostNestedBoxes = 16;
const QString writeRefused = QStringLiteral("<<< ERROR writeData: serial port not open\n\n");
const QString notSentText =
    QStringLiteral("Not sent: the camera is no longer connected. Connect again.");

/// Watches the message boxes of the program, and answers them on demand.
class Boxes : public QObject
{
public:
    Boxes() { qApp->installEventFilter(this); }
    ~Boxes() override { qApp->removeEventFilter(this); }

    int shown() const { return m_shown; }
    int mostAtOnce() const { return m_mostAtOnce; }
    /// Lowest address of the stack when a box was shown: the first ones, and all.
    quintptr lowestStackOfNested() const { return m_lowestOfNested; }
    quintptr lowestStack() const { return m_lowest; }

    static int open()
    {
        int count = 0;
        const QWidgetList windows = QApplication::topLevelWidgets();
        for (const QWidget *window : windows)
            count += qobject_cast<const QMessageBox *>(window) && window->isVisible();
        return count;
    }
    /// Does something as soon as a condition holds: boxes hold up the test itself.
    void when(const std::function<bool()> &holds, const std::function<void()> &then)
    {
        auto *look = new QTimer(this);
        connect(look, &QTimer::timeout, this, [=] {
            if (!holds())
                return;
            look->stop();
            then();
        });
        look->start(5);
    }
    void answerAll()
    {
        connect(&m_timer, &QTimer::timeout, this, [] {
            if (auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget()))
                box->button(QMessageBox::Ok)->click();
        });
        m_timer.start(0);
    }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::Show && qobject_cast<QMessageBox *>(watched)) {
            ++m_shown;
            m_mostAtOnce = std::max(m_mostAtOnce, open());
            const auto here = reinterpret_cast<quintptr>(__builtin_frame_address(0));
            m_lowest = std::min(m_lowest, here);
            if (m_shown <= mostNestedBoxes)
                m_lowestOfNested = m_lowest;
        }
        return QObject::eventFilter(watched, event);
    }

private:
    QTimer m_timer;
    int m_shown = 0;
    int m_mostAtOnce = 0;
    quintptr m_lowestOfNested = 0;
    quintptr m_lowest = ~quintptr(0);
};

/// Sends from a thread of its own, as a camera that does not care whether anyone keeps up.
class Sender
{
public:
    Sender(PseudoTerminal &line, const QByteArray &bytes)
        : m_thread([&line, bytes, this] { m_sent = line.writeAll(bytes); })
    {
    }
    ~Sender() { m_thread.join(); }
    bool sent() const { return m_sent; }

private:
    std::atomic<bool> m_sent{false};
    std::thread m_thread;
};

/// Presses a button after bytes were read and before they are heard.
class ClickBehindTheRead : public QObject
{
public:
    explicit ClickBehindTheRead(QPushButton *button) : m_button(button)
    {
        qApp->installEventFilter(this);
    }
    ~ClickBehindTheRead() override { qApp->removeEventFilter(this); }

protected:
    bool eventFilter(QObject *, QEvent *event) override
    {
        if (!m_done && event->type() == QEvent::SockAct) {
            m_done = true;
            QMetaObject::invokeMethod(m_button, "click", Qt::QueuedConnection);
        }
        return false;
    }

private:
    QPushButton *m_button;
    bool m_done = false;
};

/// Pulls the camera out as soon as the busy indicator changes.
class UnplugOnAnswer : public QObject
{
    Q_OBJECT

public:
    explicit UnplugOnAnswer(Exchange &exchange) : m_camera(exchange.camera)
    {
        connect(exchange.tool.get<QQuickWidget>("quickWidget")->rootObject(),
                SIGNAL(runningChanged()), this, SLOT(unplug()));
    }

public slots:
    void unplug() { m_camera.hangUp(); }

private:
    CameraEnd &m_camera;
};

/// The parser tells of it at once, whatever waits for the operator.
QByteArray damagedFrame()
{
    QByteArray frame = reference::frame(226, "last");
    frame[17] = 'x';
    return frame;
}

/// A record that is none because of its CRC: the tool closes the port without a box.
QByteArray damagedRecord()
{
    QByteArray record = records::sealed(records::blend());
    record[100] = static_cast<char>(record.at(100) ^ 1);
    return record;
}

/// A record of a version that the tool does not know.
QByteArray outdatedRecord()
{
    QByteArray record = records::blend();
    records::put<quint32>(record, 8, 20181211);
    return records::sealed(record);
}

} // namespace

class TestMainWindowBoxes : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { modal::useQtDialogs(); }

    void thousandsOfRefusalsGetTheirBoxesInOrder()
    {
        constexpr int refusals = 2000;
        CapturedDiagnostics lines;
        PseudoTerminal line;
        WindowUnderTest tool;
        QVERIFY(tool.connectTo(line.path()));
        tool.window.slotSendMessage(nullptr, 0, 1, 1, COMIO_CMD_GET_CONFIG);

        QByteArray bytes;
        QStringList texts;
        for (int i = 0; i < refusals; ++i) {
            bytes +=
                reference::frame(302, {}) + reference::frame(226, QByteArray::number(i) + '\0');
            texts << QString::number(i);
        }
        const auto *text = tool.get<QPlainTextEdit>("pteGPSstream");
        const auto shownText = [&] { return text->toPlainText().split('\n'); };

        Boxes boxes;
        const Sender sender(line, bytes + damagedFrame());
        bool arrived = false;
        int openThen = 0;
        QStringList textThen;
        QTimer look;
        connect(&look, &QTimer::timeout, this, [&] {
            if (arrived || !lines.out().contains("CRC invalid"))
                return;
            arrived = true;
            openThen = Boxes::open();
            textThen = shownText();
            boxes.answerAll();
        });
        look.start(5);
        QTRY_VERIFY_WITH_TIMEOUT(shownText().size() == refusals && Boxes::open() == 0, 90000);

        QVERIFY(arrived && sender.sent());
        QCOMPARE(openThen, mostNestedBoxes);
        QCOMPARE(textThen, texts.mid(0, mostNestedBoxes - 1));
        QCOMPARE(boxes.mostAtOnce(), mostNestedBoxes);
        QCOMPARE(boxes.shown(), refusals);
        QCOMPARE(shownText(), texts);
        QCOMPARE(lines.out().count("<<< Command failed!\n"), refusals);
        QVERIFY(boxes.lowestStackOfNested() - boxes.lowestStack() < 16384);
        QVERIFY(!tool.busy());
    }

    void everyKindOfBoxCounts_data()
    {
        QTest::addColumn<quint32>("code");
        QTest::addColumn<QByteArray>("payload");
        QTest::newRow("refusal") << 302U << QByteArray();
        QTest::newRow("record of an unknown version") << 202U << outdatedRecord();
        QTest::newRow("old firmware") << 216U << CameraEnd::identity(0xA0AF139E, 20180121);
        QTest::newRow("factory record")
            << 211U << zoomRecord("1812345", initialArdview(), initialHdmi(), initialAnalog());
    }
    void everyKindOfBoxCounts()
    {
        QFETCH(quint32, code);
        QFETCH(QByteArray, payload);
        constexpr int count = 40;
        Exchange e;
        QVERIFY(e.tool.chooseModel(0xA0AF139E));
        e.send(COMIO_CMD_GET_CONFIG);
        Boxes boxes;
        bool arrived = false;
        int openThen = 0;
        QTimer look;
        connect(&look, &QTimer::timeout, this, [&] {
            if (arrived || !e.lines.out().contains("CRC invalid"))
                return;
            arrived = true;
            openThen = Boxes::open();
            boxes.answerAll();
        });
        look.start(5);
        QTimer writer; // piece by piece: the line does not hold them all
        QVector<QByteArray> pieces(count, reference::frame(code, payload));
        pieces << damagedFrame();
        connect(&writer, &QTimer::timeout, this, [&] {
            if (!pieces.isEmpty())
                QVERIFY(e.camera.sendBytes(pieces.takeFirst()));
        });
        writer.start(2);
        QTRY_VERIFY_WITH_TIMEOUT(arrived && boxes.shown() == count && Boxes::open() == 0, 30000);
        QCOMPARE(openThen, mostNestedBoxes);
        QCOMPARE(boxes.mostAtOnce(), mostNestedBoxes);
    }

    void restOfAReadIsHeardUnderTheBox()
    {
        Exchange e;
        e.send(COMIO_CMD_GET_CONFIG);
        bool heard = false;
        modal::Answer<QMessageBox> answer([&](QMessageBox *box) {
            heard = QTest::qWaitFor([&] { return e.gpsText() == "one\ntwo"; });
            box->button(QMessageBox::Ok)->click();
        });
        QVERIFY(e.camera.sendBytes(reference::frame(302, {}) + reference::frame(226, "one") +
                                   reference::frame(226, "two")));
        QTRY_VERIFY(answer.given());
        QVERIFY(heard);
        QTRY_COMPARE(e.lines.out(), QStringLiteral("<<< Command failed!\n\n\n\n"));
    }

    void restOfAReadIsHeardUnderTheBoxThatItOpensToo()
    {
        Exchange e;
        e.send(COMIO_CMD_GET_CONFIG);
        Boxes boxes;
        QVERIFY(e.camera.sendBytes(reference::frame(302, {}) + reference::frame(302, {}) +
                                   reference::frame(226, "after")));
        int open = 0;
        QTimer look;
        connect(&look, &QTimer::timeout, this, [&] {
            if (open == 0 && e.gpsText() == "after") {
                open = Boxes::open();
                boxes.answerAll();
            }
        });
        look.start(5);
        QTRY_VERIFY(open > 0 && Boxes::open() == 0);
        QCOMPARE(open, 2);
    }

    void disconnectIsShownBeforeTheBoxOfWhatArrivedLast()
    {
        Exchange e;
        e.send(COMIO_CMD_GET_CONFIG);
        auto *button = e.tool.get<QPushButton>("btConnectDisconnect");
        QString text;
        bool readEnabled = true;
        modal::Answer<QMessageBox> answer([&](QMessageBox *box) {
            text = button->text();
            readEnabled = e.tool.widget("btnReadConf")->isEnabled();
            box->button(QMessageBox::Ok)->click();
        });
        const ClickBehindTheRead click(button);
        QVERIFY(e.camera.send(302));
        QTRY_VERIFY(answer.given());
        QCOMPARE(text, QStringLiteral("Connect"));
        QVERIFY(!readEnabled);
        QTRY_COMPARE(e.lines.out(),
                     QStringLiteral("SerialConnection::closeSerialPort()\n<<< close()\n"
                                    "<<< serial interface closed\n<<< Command failed!\n\n"));
    }

    void requestOfAMessageHeardAfterTheDisconnectSaysThatItWasNotSent()
    {
        Exchange e;
        const ClickBehindTheRead click(e.tool.get<QPushButton>("btConnectDisconnect"));
        QVERIFY(e.camera.send(216, CameraEnd::identity(0xA0AF139E)));
        QTRY_VERIFY(e.lines.out().contains(writeRefused));
        QTRY_VERIFY(!e.tool.busy());
        QCOMPARE(e.tool.window.statusBar()->currentMessage(), notSentText);
    }

    void whatIsSentWithoutAPortFromTheStartKeepsTheIndicator()
    {
        CapturedDiagnostics lines;
        WindowUnderTest tool;
        const QString status = tool.window.statusBar()->currentMessage();
        tool.window.slotNewMessageReceived(replyOk(COMIO_CMD_SET_CONFIG), {});
        QCOMPARE(lines.out(), writeRefused + '\n');
        QVERIFY(tool.busy());
        QCOMPARE(tool.window.statusBar()->currentMessage(), status);
    }

    void writeConfirmedWithoutAPortKeepsTheIndicator()
    {
        CapturedDiagnostics lines;
        WindowUnderTest tool;
        QVERIFY(tool.chooseModel(0xC92A6CE6));
        modal::Answer<QMessageBox> answer(
            [](QMessageBox *box) { box->button(QMessageBox::Ok)->click(); });
        QVERIFY(QMetaObject::invokeMethod(&tool.window, "on_btnSetConf_clicked"));
        QVERIFY(answer.given());
        QVERIFY(lines.out().endsWith(writeRefused));
        QVERIFY(tool.busy());
    }

    void waitingRefusalIsThatOfTheCommandOfItsArrival()
    {
        constexpr int refusals = mostNestedBoxes + 4;
        Exchange e;
        e.send(COMIO_CMD_GET_CONFIG);
        Boxes boxes;
        bool later = false;
        boxes.when([&] { return e.lines.out().contains("CRC invalid"); },
                   [&] {
                       e.send(COMIO_CMD_DO_FFC, "\1");
                       later = e.tool.busy();
                       boxes.answerAll();
                   });
        QVERIFY(e.camera.sendBytes(reference::frame(302, {}).repeated(refusals) + damagedFrame()));
        QTRY_VERIFY(later && Boxes::open() == 0);
        QTRY_COMPARE(boxes.shown(), refusals);
        QCOMPARE(e.lines.out().count("<<< Command failed!\n"), refusals);
        QVERIFY(e.tool.busy()); // of the later command
        QVERIFY(e.camera.send(233));
        QTRY_VERIFY(!e.tool.busy());
    }

    void framesBehindOneWhoseRequestFoundTheDeviceGoneAreHeard()
    {
        Exchange e;
        e.send(COMIO_CMD_SET_CONFIG);
        // Pulled out when the acknowledgement turns the indicator off, before the next request.
        const UnplugOnAnswer unplug(e);
        QVERIFY(e.camera.sendBytes(reference::frame(201, {}) + reference::frame(226, "behind")));
        QTRY_COMPARE(e.gpsText(), QStringLiteral("behind"));
        QCOMPARE(e.tool.get<QPushButton>("btConnectDisconnect")->text(), QStringLiteral("Connect"));
        QVERIFY(!e.tool.busy());
    }

    void framesBehindOneThatClosedThePortAreDropped_data()
    {
        QTest::addColumn<int>("open");
        QTest::newRow("without a box") << 0;
        QTest::newRow("waiting for a box") << mostNestedBoxes;
    }
    void framesBehindOneThatClosedThePortAreDropped()
    {
        QFETCH(int, open);
        Exchange e;
        Boxes boxes;
        const QString status = e.tool.window.statusBar()->currentMessage();
        const QByteArray read = reference::frame(202, damagedRecord()) +
                                reference::frame(216, CameraEnd::identity(0xA0AF139E)) +
                                reference::frame(226, "late");
        const auto damagedArrived = [&](int count) {
            return [&, count] { return e.lines.out().count("CRC invalid") == count; };
        };
        if (open == 0) {
            QVERIFY(e.camera.sendBytes(read + reference::frame(226, "cut off").left(20)));
        } else {
            boxes.when([&] { return Boxes::open() == open; },
                       [&] { e.camera.sendBytes(read + damagedFrame()); });
            boxes.when(damagedArrived(1), [&] {
                e.camera.sendBytes(reference::frame(226, "of another read") + damagedFrame());
            });
            boxes.when(damagedArrived(2), [&] { boxes.answerAll(); });
            e.send(COMIO_CMD_GET_CONFIG);
            QVERIFY(e.camera.sendBytes(reference::frame(302, {}).repeated(open)));
        }
        auto *button = e.tool.get<QPushButton>("btConnectDisconnect");
        QTRY_COMPARE(button->text(), QStringLiteral("Connect"));
        QTest::qWait(50);
        QTRY_COMPARE(Boxes::open(), 0);
        QCOMPARE(boxes.shown(), open);
        QCOMPARE(e.lines.out().count("<<< serial interface closed\n"), 1);
        QVERIFY(!e.lines.out().contains(writeRefused));
        const QString heard = open > 0 ? QStringLiteral("of another read") : QString();
        QCOMPARE(e.gpsText(), heard);
        QCOMPARE(e.tool.window.statusBar()->currentMessage(), status);
        QVERIFY(!e.tool.busy());
        // Nothing of it is left for the next connection.
        button->click();
        QCOMPARE(button->text(), QStringLiteral("Disconnect"));
        e.camera.send(226, "new");
        QTRY_COMPARE(e.gpsText(), heard + (open > 0 ? "\nnew" : "new"));
    }

    void writeConfirmedAfterTheCameraHasGoneSaysSo_data()
    {
        QTest::addColumn<bool>("confirmed");
        QTest::newRow("Ok") << true;
        QTest::newRow("Cancel") << false;
    }
    void writeConfirmedAfterTheCameraHasGoneSaysSo()
    {
        QFETCH(bool, confirmed);
        Exchange e;
        QVERIFY(e.tool.chooseModel(0xC92A6CE6));
        const QString status = e.tool.window.statusBar()->currentMessage();
        bool gone = false;
        modal::Answer<QMessageBox> answer([&](QMessageBox *box) {
            e.camera.hangUp();
            gone = QTest::qWaitFor([&] {
                return e.tool.get<QPushButton>("btConnectDisconnect")->text() == "Connect";
            });
            box->button(confirmed ? QMessageBox::Ok : QMessageBox::Cancel)->click();
        });
        QVERIFY(QMetaObject::invokeMethod(&e.tool.window, "on_btnSetConf_clicked"));
        QVERIFY(answer.given() && gone);
        QVERIFY(!e.tool.busy());
        QCOMPARE(e.lines.out().endsWith(writeRefused), confirmed);
        QCOMPARE(e.tool.window.statusBar()->currentMessage(), confirmed ? notSentText : status);
    }

    void firmwareBoxAnsweredAfterTheCameraHasGoneSaysSo()
    {
        Exchange e;
        bool gone = false;
        modal::Answer<QMessageBox> answer([&](QMessageBox *box) {
            e.camera.hangUp();
            gone = QTest::qWaitFor([&] {
                return e.tool.get<QPushButton>("btConnectDisconnect")->text() == "Connect";
            });
            box->button(QMessageBox::Ok)->click();
        });
        e.camera.send(216, CameraEnd::identity(0xA0AF139E, 20180121));
        QTRY_VERIFY(e.lines.out().contains(writeRefused));
        QVERIFY(answer.given() && gone);
        QTRY_VERIFY(!e.tool.busy());
        QCOMPARE(e.tool.window.statusBar()->currentMessage(), notSentText);
    }
};

QTEST_MAIN(TestMainWindowBoxes)
#include "tst_mainwindow_boxes.moc"
