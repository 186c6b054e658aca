// Where the window takes what the camera sends, code by code.

#include "support/exchange.h"
#include "support/factoryrecords.h"
#include "support/modal.h"
#include "support/records.h"

#include <QLCDNumber>
#include <QLineEdit>
#include <QSpinBox>
#include <QStatusBar>
#include <QTableWidget>

namespace {

QByteArray levels(quint16 first)
{
    QByteArray payload(32, '\0');
    for (int channel = 0; channel < 16; ++channel)
        records::put<quint16>(payload, 2 * channel, static_cast<quint16>(first + channel));
    return payload;
}

} // namespace

class TestMainWindowDispatch : public QObject
{
    Q_OBJECT

private slots:
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

    void blendFactoryReplyIsShownAndNotWrittenBack()
    {
        Exchange e;
        QVERIFY(e.tool.chooseModel(0xC92A6CE6));
        e.lines.clear();
        e.camera.send(211, blendRecord("1812345", {-12, 34, 45, 15, 500}));
        QTRY_COMPARE(e.lines.out(), QStringLiteral("<<< 1812345\n\n"));
        const auto value = [&](const char *name) { return e.tool.get<QSpinBox>(name)->value(); };
        QCOMPARE(e.tool.get<QLineEdit>("leSerialNumber")->text(), QStringLiteral("1812345"));
        QCOMPARE(value("sbHorizontalAdjustement"), -12);
        QCOMPARE(value("sbVerticalAdjustment"), 34);
        QCOMPARE(value("sbLiveViewHorizontalAdjustment"), 5);
        QCOMPARE(value("sbLiveViewVerticalAdjustment"), 3);
        QCOMPARE(value("sbScale"), 500);
        e.send(COMIO_CMD_DO_FFC); // a later command: all before it have arrived
        QTRY_COMPARE(e.camera.commands(), (QVector<quint32>{116, 133, 133}));
    }

    void zoomFactoryReplyAsksAndFillsTheTables()
    {
        Exchange e;
        QVERIFY(e.tool.chooseModel(0xA0AF139E));
        QVector<int> hdmi = initialHdmi();
        QVector<int> analog = initialAnalog();
        QVector<int> ardview = initialArdview();
        int next = -100; // no two alike
        for (QVector<int> *table : {&hdmi, &analog, &ardview})
            for (int &number : *table)
                number = next++;
        const QByteArray record = zoomRecord("1812345", ardview, hdmi, analog);
        QCOMPARE(record.size(), 416);
        QString title;
        modal::Answer<QMessageBox> question([&](QMessageBox *box) {
            title = box->windowTitle();
            box->button(QMessageBox::Ok)->click();
        });
        e.camera.send(211, record);
        QTRY_VERIFY(question.given());
        QCOMPARE(title, QStringLiteral("Read Settings?"));
        const QPair<const char *, const QVector<int> *> tables[] = {
            {"tw_QXBZ_hdmi", &hdmi}, {"tw_QXBZ_analog", &analog}, {"tw_QXBZ_ardview", &ardview}};
        for (const auto &each : tables) {
            const auto *table = e.tool.get<QTableWidget>(each.first);
            QTRY_COMPARE(table->item(table->rowCount() - 1, 9)->text().toInt(),
                         each.second->last());
            for (int i = 0; i < each.second->size(); ++i)
                QCOMPARE(table->item(i % table->rowCount(), i / table->rowCount())->text().toInt(),
                         each.second->at(i));
        }
        QCOMPARE(e.tool.get<QLineEdit>("leSerialNumber")->text(), QStringLiteral("1812345"));
        e.send(COMIO_CMD_DO_FFC);
        QTRY_COMPARE(e.camera.commands(), (QVector<quint32>{116, 133, 133}));
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
};

QTEST_MAIN(TestMainWindowDispatch)
#include "tst_mainwindow_dispatch.moc"
