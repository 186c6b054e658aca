#include "forms/coding.h"
#include "support/captureddiagnostics.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QLineEdit>
#include <QSlider>
#include <QSpinBox>
#include <QTest>

class TestCoding : public QObject
{
    Q_OBJECT

public:
    enum Modes { MODE_A = 2, MODE_B = 9 };
    Q_ENUM(Modes)

private slots:
    void indexSelectsNothingOutsideTheList()
    {
        QComboBox box;
        box.addItems({QStringLiteral("a"), QStringLiteral("b")});
        const Coding coding = coding::index(&box);
        coding.show(1);
        QCOMPARE(box.currentIndex(), 1);
        QCOMPARE(coding.store(), std::optional<qint64>(1));
        coding.show(200);
        QCOMPARE(box.currentIndex(), -1);
        QCOMPARE(coding.store(), std::optional<qint64>(-1));
    }

    void anyNumberButZeroChecks()
    {
        QCheckBox box;
        const Coding coding = coding::check(&box);
        coding.show(0x80);
        QVERIFY(box.isChecked());
        QCOMPARE(coding.store(), std::optional<qint64>(1));
        coding.show(0);
        QCOMPARE(coding.store(), std::optional<qint64>(0));
    }

    void offsetIsAddedWhenStored()
    {
        QSpinBox zoom;
        zoom.setRange(1, 10);
        const Coding coding = coding::value(&zoom, -1);
        coding.show(9);
        QCOMPARE(zoom.value(), 10);
        QCOMPARE(coding.store(), std::optional<qint64>(9));
        coding.show(20);
        QCOMPARE(zoom.value(), 10);
        coding.show(0);
        QCOMPARE(zoom.value(), 1);
    }

    void scaledDropsTheRemainder()
    {
        QSpinBox seconds;
        seconds.setRange(0, 86400);
        const Coding coding = coding::scaled(&seconds, 1000);
        coding.show(1999);
        QCOMPARE(seconds.value(), 1);
        QCOMPARE(coding.store(), std::optional<qint64>(1000));
        coding.show(4294967295);
        QCOMPARE(seconds.value(), 86400);
        QCOMPARE(coding.store(), std::optional<qint64>(86400000));
    }

    void hundredthsAreTruncatedTowardZero_data()
    {
        QTest::addColumn<double>("shown");
        QTest::addColumn<int>("stored");
        QTest::newRow("1.25") << 1.25 << 125;
        QTest::newRow("0.29") << 0.29 << 28;
        QTest::newRow("-0.29") << -0.29 << -28;
        QTest::newRow("0.57") << 0.57 << 56;
        QTest::newRow("-20") << -20.0 << -2000;
    }

    void hundredthsAreTruncatedTowardZero()
    {
        QFETCH(double, shown);
        QFETCH(int, stored);
        QDoubleSpinBox box;
        box.setRange(-20, 20);
        const Coding coding = coding::hundredths(&box);
        box.setValue(shown);
        QCOMPARE(coding.store(), std::optional<qint64>(stored));
        coding.show(stored);
        QCOMPARE(box.value(), stored / 100.0);
    }

    void numberTextSelectsTheItemThatSpellsIt()
    {
        QComboBox box;
        box.addItems({QStringLiteral("1200"), QStringLiteral("9600")});
        for (const Coding &coding : {coding::numberText(&box), coding::signedNumberText(&box)}) {
            coding.show(9600);
            QCOMPARE(box.currentIndex(), 1);
            coding.show(14400);
            QCOMPARE(box.currentIndex(), 1);
            QCOMPARE(coding.store(), std::optional<qint64>(9600));
            box.setCurrentIndex(-1);
            QCOMPARE(coding.store(), std::optional<qint64>(0));
        }
    }

    void typedNumberThatIsNoneStoresZero_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<qint64>("stored");
        QTest::newRow("letters") << "abc" << qint64(0);
        QTest::newRow("empty") << "" << qint64(0);
        QTest::newRow("negative") << "-1" << qint64(0);
        QTest::newRow("largest") << "4294967295" << qint64(0xFFFFFFFF);
        QTest::newRow("too large") << "4294967296" << qint64(0);
        QTest::newRow("number") << "17" << qint64(17);
    }

    void typedNumberThatIsNoneStoresZero()
    {
        QFETCH(QString, text);
        QFETCH(qint64, stored);
        QLineEdit edit;
        const Coding coding = coding::numberText(&edit);
        edit.setText(text);
        QCOMPARE(coding.store(), std::optional<qint64>(stored));
        coding.show(4294967295);
        QCOMPARE(edit.text(), QStringLiteral("4294967295"));
    }

    void keyFollowsTheTextNotThePosition()
    {
        QComboBox box;
        box.addItems({QStringLiteral("MODE_B"), QStringLiteral("MODE_A"), QStringLiteral("x")});
        const Coding coding = coding::key(&box, QMetaEnum::fromType<Modes>());
        coding.show(2);
        QCOMPARE(box.currentIndex(), 1);
        QCOMPARE(coding.store(), std::optional<qint64>(2));
        coding.show(200);
        QCOMPARE(box.currentIndex(), 1);
        box.setCurrentIndex(2);
        QCOMPARE(coding.store(), std::optional<qint64>(-1));
        box.setCurrentIndex(-1);
        QCOMPARE(coding.store(), std::optional<qint64>(-1));
    }

    void joinedKeysAreOred()
    {
        QComboBox box;
        box.addItem(QStringLiteral("MODE_A|MODE_B"));
        const auto keys = QMetaEnum::fromType<Modes>();
        QCOMPARE(coding::joinedKeys(&box, keys).store(), std::optional<qint64>(2 | 9));
        QCOMPARE(coding::key(&box, keys).store(), std::optional<qint64>(-1));
        box.setItemText(0, QStringLiteral("MODE_B"));
        QCOMPARE(coding::joinedKeys(&box, keys).store(), std::optional<qint64>(9));
        box.setItemText(0, QString());
        QCOMPARE(coding::joinedKeys(&box, keys).store(), std::optional<qint64>(-1));
        box.addItem(QStringLiteral("MODE_A"));
        coding::joinedKeys(&box, keys).show(2);
        QCOMPARE(box.currentIndex(), 1);
    }

    void mappedReportsWhatItDoesNotKnow()
    {
        QComboBox box;
        box.addItems({QStringLiteral("off"), QStringLiteral("on"), QStringLiteral("more")});
        const Coding coding = coding::mapped(
            &box, {3, 2}, [](qint64 n) { return QStringLiteral("number %1").arg(n); },
            [](int i) { return QStringLiteral("position %1").arg(i); });
        CapturedDiagnostics lines;
        coding.show(2);
        QCOMPARE(box.currentIndex(), 1);
        QCOMPARE(coding.store(), std::optional<qint64>(2));
        coding.show(7);
        QCOMPARE(box.currentIndex(), 1);
        box.setCurrentIndex(2);
        QVERIFY(!coding.store());
        box.setCurrentIndex(-1);
        QVERIFY(!coding.store());
        QCOMPARE(lines.err(), QStringLiteral("number 7\nposition 2\nposition -1\n"));
        QVERIFY(lines.out().isEmpty());
    }

    void focusByteHasItsSignInTheTopBits_data()
    {
        QTest::addColumn<int>("value");
        QTest::addColumn<int>("byte");
        QTest::newRow("+31") << 31 << 0xDF;
        QTest::newRow("+5") << 5 << 0xC5;
        QTest::newRow("0") << 0 << 0x00;
        QTest::newRow("-5") << -5 << 0x45;
        QTest::newRow("-31") << -31 << 0x5F;
    }

    void focusByteHasItsSignInTheTopBits()
    {
        QFETCH(int, value);
        QFETCH(int, byte);
        QSpinBox box;
        box.setRange(-31, 31);
        const Coding coding = coding::sonyFcbFocus(&box);
        box.setValue(value);
        QCOMPARE(coding.store(), std::optional<qint64>(byte));
        box.setValue(-10);
        coding.show(byte);
        QCOMPARE(box.value(), value);
    }

    void focusBytesWithoutASignReadAsZero()
    {
        for (const quint8 byte : {0x00, 0x1F, 0x3F, 0x80, 0x9F})
            QCOMPARE(SonyFCBFocusvalue2int(byte), 0);
        QCOMPARE(SonyFCBFocusvalue2int(0x7F), -63);
        QCOMPARE(SonyFCBFocusvalue2int(0xFF), 63);
    }

    void writeOnlyShowsNothing()
    {
        QSlider slider;
        slider.setValue(5);
        const Coding coding = coding::writeOnly(coding::value(&slider));
        QVERIFY(!coding.show);
        QCOMPARE(coding.store(), std::optional<qint64>(5));
        QCOMPARE(coding.widget, &slider);
    }
};

QTEST_MAIN(TestCoding)
#include "tst_coding.moc"
