// Cells of any 32-bit number, whatever the record has room for and the desktop's locale is.

#include "factory/factorywindow.h"

#include <QDir>
#include <QLabel>
#include <QLocale>
#include <QSpinBox>
#include <QStyledItemDelegate>
#include <QTemporaryDir>
#include <QTest>
#include <QTextStream>

#include <limits>

namespace {

constexpr int lowest = std::numeric_limits<int>::min();
constexpr int highest = std::numeric_limits<int>::max();

/// The dialog of a Blend Zoom on the screen.
struct ZoomWindow : FactoryWindow
{
    ZoomWindow()
    {
        devices.setDevice(KovoDevice_QXBlendZoom);
        dialog.show();
        said.clear();
    }

    QSpinBox *edit(const char *name, int row, int column)
    {
        QTableWidget *cells = table(name);
        cells->editItem(cells->item(row, column));
        auto *editor = cells->viewport()->findChild<QSpinBox *>();
        if (editor == nullptr)
            qFatal("no editor");
        return editor;
    }
    void set(const char *name, int row, int column, const QVariant &value)
    {
        table(name)->item(row, column)->setData(Qt::DisplayRole, value);
    }
    QString cell(const char *name, int row, int column)
    {
        return table(name)->item(row, column)->text();
    }
    QLabel *beyond() { return widget<QLabel>("labelCellsBeyond16Bit"); }
    QStringList linesBeyond() { return beyond()->text().split('\n', Qt::SkipEmptyParts); }
};

} // namespace

class TestFactoryCells : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { QLocale::setDefault(QLocale::c()); }

    void lookingAtACellLeavesIt_data()
    {
        QTest::addColumn<QString>("table");
        QTest::addColumn<QVariant>("value");
        for (const char *table : tableNames)
            for (const QVariant &value :
                 {QVariant(40000), QVariant(-40000), QVariant(lowest), QVariant(highest),
                  QVariant(QStringLiteral("40000")), QVariant(QStringLiteral("no number"))})
                QTest::newRow(qPrintable(table + QStringLiteral(", ") + value.toString()))
                    << table << value;
    }
    void lookingAtACellLeavesIt()
    {
        QFETCH(QString, table);
        QFETCH(QVariant, value);
        const QByteArray name = table.toLatin1();
        ZoomWindow w;
        w.set(name, 1, 2, value);
        QSpinBox *editor = w.edit(name, 1, 2);
        QCOMPARE(editor->value(), value.toInt());
        QTest::keyClick(editor, Qt::Key_Return);
        QTRY_VERIFY(w.table(name)->viewport()->findChild<QSpinBox *>() == nullptr);
        QCOMPARE(w.table(name)->item(1, 2)->data(Qt::DisplayRole), value);
    }

    void anyNumberCanBeTyped_data()
    {
        QTest::addColumn<QString>("table");
        QTest::addColumn<int>("number");
        for (const char *table : tableNames)
            for (const int number : {0, 32767, 32768, -32768, -32769, 40000, lowest, highest})
                QTest::newRow(qPrintable(table + QStringLiteral(", %1").arg(number)))
                    << table << number;
    }
    void anyNumberCanBeTyped()
    {
        QFETCH(QString, table);
        QFETCH(int, number);
        const QByteArray name = table.toLatin1();
        ZoomWindow w;
        w.set(name, 1, 2, 7);
        QSpinBox *editor = w.edit(name, 1, 2);
        editor->selectAll();
        QTest::keyClicks(editor, QString::number(number));
        QTest::keyClick(editor, Qt::Key_Return);
        QTRY_COMPARE(w.table(name)->item(1, 2)->data(Qt::DisplayRole), QVariant(number));
    }

    void anyNumberReplacesAText_data()
    {
        QTest::addColumn<QString>("table");
        QTest::addColumn<int>("number");
        for (const char *table : tableNames)
            for (const int number : {0, 7})
                QTest::newRow(qPrintable(table + QStringLiteral(", %1").arg(number)))
                    << table << number;
    }
    void anyNumberReplacesAText()
    {
        QFETCH(QString, table);
        QFETCH(int, number);
        const QByteArray name = table.toLatin1();
        ZoomWindow w;
        w.set(name, 1, 2, QStringLiteral("no number"));
        QSpinBox *editor = w.edit(name, 1, 2);
        editor->selectAll();
        QTest::keyClicks(editor, QString::number(number));
        QTest::keyClick(editor, Qt::Key_Return);
        QTRY_COMPARE(w.table(name)->item(1, 2)->data(Qt::DisplayRole), QVariant(number));
    }

    void recordKeepsTheLowBitsOfADisplacement()
    {
        ZoomWindow w;
        w.set("tw_QXBZ_hdmi", 0, 0, 40000);      // 0x9C40
        w.set("tw_QXBZ_analog", 6, 9, -40000);   // 0xFFFF63C0
        w.set("tw_QXBZ_ardview", 2, 0, 1 << 20); // 32 bits wide
        const FactorySettings_QXBlendZoom_TypeDef record = w.dialog.ui2struct_QXBlendZoom();
        const QByteArray bytes(reinterpret_cast<const char *>(&record), sizeof record);
        QCOMPARE(bytes.mid(136, 2), QByteArray::fromHex("409c"));
        QCOMPARE(bytes.mid(276 + 9 * 14 + 12, 2), QByteArray::fromHex("c063"));
        QCOMPARE(bytes.mid(24, 4), QByteArray::fromHex("00001000"));
    }

    void saysWhatDoesNotFit()
    {
        ZoomWindow w;
        QVERIFY(!w.beyond()->isVisible());
        QVERIFY(w.linesBeyond().isEmpty());

        w.set("tw_QXBZ_hdmi", 0, 2, 32768);
        QVERIFY(w.beyond()->isVisible());
        QCOMPARE(w.linesBeyond().mid(1),
                 QStringList{"HDMI A, zoom position 3: 32768 becomes -32768"});

        w.set("tw_QXBZ_analog", 6, 9, -32769);
        QCOMPARE(w.linesBeyond().mid(1),
                 (QStringList{"HDMI A, zoom position 3: 32768 becomes -32768",
                              "Analog G, zoom position 10: -32769 becomes 32767"}));

        w.set("tw_QXBZ_hdmi", 0, 2, 32767);
        w.set("tw_QXBZ_analog", 6, 9, -32768);
        w.set("tw_QXBZ_ardview", 0, 0, highest); // has the room
        QVERIFY(w.linesBeyond().isEmpty());
        QVERIFY(!w.beyond()->isVisible());
    }

    void namesTheFirstThatDoNotFit()
    {
        ZoomWindow w;
        for (int column = 0; column < 10; ++column)
            w.set("tw_QXBZ_hdmi", 4, column, 40000);
        const QStringList lines = w.linesBeyond();
        QCOMPARE(lines.size(), 5);
        QCOMPARE(lines[1], QStringLiteral("HDMI E, zoom position 1: 40000 becomes -25536"));
        QCOMPARE(lines[3], QStringLiteral("HDMI E, zoom position 3: 40000 becomes -25536"));
        QCOMPARE(lines[4], QStringLiteral("and 7 more"));
    }

    void saysNothingForAModelWithoutTheTables()
    {
        ZoomWindow w;
        w.set("tw_QXBZ_hdmi", 0, 0, 40000);
        w.devices.setDevice(KovoDevice_QXBlend);
        QVERIFY(!w.beyond()->isVisible());
        w.devices.setDevice(KovoDevice_QXBlendZoom);
        QVERIFY(w.beyond()->isVisible());
    }

    void noteIsPlainText()
    {
        ZoomWindow w;
        QCOMPARE(w.beyond()->textFormat(), Qt::PlainText);
    }

    void cellsAndFilesDoNotFollowTheLocale_data()
    {
        QTest::addColumn<QString>("locale");
        for (const char *locale : {"C", "en_US", "fr_FR", "sv_SE", "fa_IR", "de_DE"})
            QTest::newRow(locale) << locale;
    }
    void cellsAndFilesDoNotFollowTheLocale()
    {
        QFETCH(QString, locale);
        QLocale::setDefault(QLocale(locale));
        ZoomWindow w;
        for (const char *name : tableNames) {
            QSpinBox *editor = w.edit(name, 1, 2);
            editor->selectAll();
            QTest::keyClicks(editor, "-1234");
            QCOMPARE(editor->text(), QStringLiteral("-1234"));
            QTest::keyClick(editor, Qt::Key_Return);
            QTRY_COMPARE(w.cell(name, 1, 2), QStringLiteral("-1234"));
            QTableWidget *table = w.table(name);
            auto *delegate = qobject_cast<QStyledItemDelegate *>(table->itemDelegate());
            QVERIFY(delegate != nullptr);
            QCOMPARE(delegate->displayText(-1234, table->locale()), QStringLiteral("-1234"));
        }
        const QTemporaryDir folder;
        w.dialog.writeFile(folder.path());
        w.dialog.writeReport(folder.path());
        QFile record(folder.filePath("1700999.dat"));
        QVERIFY(record.open(QIODevice::ReadOnly));
        QCOMPARE(record.readAll().mid(136 + 2 * 14 + 2, 2), QByteArray::fromHex("2efb"));
        QFile report(folder.filePath("1700999.txt"));
        QVERIFY(report.open(QIODevice::ReadOnly));
        const QByteArray text = report.readAll();
        QVERIFY2(text.contains("\nB 188,0,-1234,0,0,0,0,0,0,0,\n"), text.constData());
        QVERIFY2(text.contains("\nY-Shift -20,-1,-1234,0,0,0,0,0,0,0,\n"), text.constData());
        QVERIFY2(text.contains("\nE 378,733,1100,1450,1840,2250,2550,2900,3300,3700,\n"),
                 text.constData());
    }

    void controlCharactersNameNoFile_data()
    {
        QTest::addColumn<QString>("serial");
        QTest::addColumn<QString>("spelt");
        QTest::newRow("line feed") << "17\n01"
                                   << "17\\x0a01";
        QTest::newRow("escape") << "\x1b[2J"
                                << "\\x1b[2J";
        QTest::newRow("C1") << QStringLiteral("17\u008501") << "17\\x8501";
        QTest::newRow("delete") << "17\x7f"
                                << "17\\x7f";
    }
    void controlCharactersNameNoFile()
    {
        QFETCH(QString, serial);
        QFETCH(QString, spelt);
        ZoomWindow w;
        w.dialog.parseFactorySettings_QXBlend(
            toVector(blendRecord(serial.toLatin1(), {0, 0, 40, 12, 480})));
        QCOMPARE(w.said.out(), "<<< " + spelt + '\n');
        QCOMPARE(w.serialNumber()->text(), serial);
        w.said.clear();
        const QTemporaryDir folder;
        w.dialog.writeFile(folder.path());
        w.dialog.writeReport(folder.path());
        QVERIFY(QDir(folder.path()).isEmpty());
        const QString refusal = "<<< the serial number cannot name a file: " + spelt + '\n';
        QCOMPARE(w.said.err(), refusal + refusal);

        // The record takes it as it is.
        w.said.clear();
        const FactorySettings_QXBlendZoom_TypeDef record = w.dialog.ui2struct_QXBlendZoom();
        QCOMPARE(QByteArray(record.device_serial_number.data()), serial.toLatin1());
        QCOMPARE(w.said.out(), "<<< " + spelt + '\n');
    }

private:
    static QVector<uint8_t> toVector(const QByteArray &bytes)
    {
        return QVector<uint8_t>(bytes.begin(), bytes.end());
    }
};

QTEST_MAIN(TestFactoryCells)
#include "tst_factorycells.moc"
