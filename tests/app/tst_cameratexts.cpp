// Texts that a camera sends, whatever is in them.

#include "support/exchange.h"
#include "support/records.h"

#include <QLabel>
#include <QScrollBar>
#include <QStatusBar>
#include <QTextBlock>

class TestCameraTexts : public QObject
{
    Q_OBJECT

private slots:
    void serialNumberIsOneLineOfPlainText_data()
    {
        QTest::addColumn<QByteArray>("serial");
        QTest::addColumn<QString>("shown");
        QTest::newRow("printable")
            << QByteArray(" 17-\xe4\\x0a ") << QStringLiteral(" 17-\u00e4\\x0a ");
        QTest::newRow("rich text") << QByteArray("<b>1</b>&amp;") << "<b>1</b>&amp;";
        QTest::newRow("lines") << QByteArray("1\r\n2") << "1\\x0d\\x0a2";
        QTest::newRow("terminal") << QByteArray("\x1b[31m1\x9b") << "\\x1b[31m1\\x9b";
        QTest::newRow("places of other texts") << QByteArray("%1 %2") << "%1 %2";
    }
    void serialNumberIsOneLineOfPlainText()
    {
        QFETCH(QByteArray, serial);
        QFETCH(QString, shown);
        Exchange e;
        e.camera.send(216, CameraEnd::identity(records::keyBlend, 20200101, serial));
        QTRY_COMPARE(e.tool.window.statusBar()->currentMessage(),
                     "Device ID: QX Blend   Serial: " + shown);
    }

    void nameOfNoModelIsOneLine()
    {
        CapturedDiagnostics lines;
        WindowUnderTest tool;
        QVERIFY(!tool.window.changeDeviceName("Quorvix\nBlend\x1b[2J"));
        QCOMPARE(lines.err(),
                 QStringLiteral("<< Device not implemented: Quorvix\\x0aBlend\\x1b[2J\n"));
    }

    void gpsTextIsPlain()
    {
        Exchange e;
        e.camera.send(226, QByteArray("<b>$GPGGA</b>&amp;\0", 19));
        QTRY_COMPARE(e.gpsText(), QStringLiteral("<b>$GPGGA</b>&amp;"));
    }

    void gpsTextKeepsItsControlCharacters()
    {
        Exchange e;
        e.camera.send(226, QByteArray("one\r\ntwo\t\x1b[1m\a<i>\0", 19));
        QTRY_COMPARE(e.gpsText(), QStringLiteral("one\ntwo\t\x1b[1m\a<i>"));
    }

    void linesWithinAGpsTextCountAsLines()
    {
        Exchange e;
        QByteArray text;
        for (int i = 0; i < 10010; ++i)
            text += QByteArray::number(i) + "\r\n";
        e.tool.window.slotNewMessageReceived(replyOk(COMIO_CMD_GPS_STREAM_DATA),
                                             records::payload(text + "end" + '\0'));
        const QStringList kept = e.gpsText().split('\n');
        QCOMPARE(kept.size(), 10000);
        QCOMPARE(kept.first(), QStringLiteral("11"));
        QCOMPARE(kept.last(), QStringLiteral("end"));
    }

    void gpsTextIsBoundByItsBytes()
    {
        Exchange e;
        auto *box = e.tool.get<QPlainTextEdit>("pteGPSstream");
        constexpr int limit = 1 << 20;
        constexpr int length = 100000;
        const auto line = [](int number) {
            return QByteArray::number(number).rightJustified(6, '0') + QByteArray(length - 6, 'x');
        };
        const int lines = 2 * limit / length;
        for (int i = 0; i < lines; ++i) {
            const QByteArray bytes = line(i) + '\0';
            e.tool.window.slotNewMessageReceived(replyOk(COMIO_CMD_GPS_STREAM_DATA),
                                                 records::payload(bytes));
            QVERIFY(box->document()->characterCount() <= limit + 1);
        }
        const QStringList kept = e.gpsText().split('\n');
        QCOMPARE(kept.size(), limit / (length + 1)); // whole lines, each with its end
        for (int i = 0; i < kept.size(); ++i)
            QCOMPARE(kept[i], QString::fromLatin1(line(lines - kept.size() + i)));
    }

    void gpsTextKeepsTenThousandShortLines()
    {
        Exchange e;
        for (int i = 0; i < 10010; ++i)
            e.tool.window.slotNewMessageReceived(replyOk(COMIO_CMD_GPS_STREAM_DATA),
                                                 records::payload(QByteArray::number(i) + '\0'));
        const QStringList kept = e.gpsText().split('\n');
        QCOMPARE(kept.size(), 10000);
        QCOMPARE(kept.first(), QStringLiteral("10"));
        QCOMPARE(kept.last(), QStringLiteral("10009"));
    }
};

QTEST_MAIN(TestCameraTexts)
#include "tst_cameratexts.moc"
