// Values of fields as text, and back.

#include "records/fieldvalue.h"
#include "records/text.h"
#include "support/layouts.h"

#include <QLocale>

namespace {

const Field &fieldNamed(const char *name)
{
    for (const Layout *layout :
         {&layouts::blend, &layouts::blendZoom, &layouts::blendFactory, &layouts::blendZoomFactory})
        if (const Field *field = layout->field(QLatin1String(name)))
            return *field;
    qFatal("no field %s", name);
}

/// A record that holds `hex` in that field and 0x55 elsewhere.
QByteArray recordWith(const Field &field, const QByteArray &hex)
{
    QByteArray record(416, '\x55');
    const QByteArray bytes = QByteArray::fromHex(hex);
    return record.replace(field.wire.offset, bytes.size(), bytes);
}

} // namespace

class TestRecordText : public QObject
{
    Q_OBJECT

private slots:
    void init() { QLocale::setDefault(QLocale(QLocale::German)); } // its decimal mark is a comma

    void showsWhatTheFormShows_data()
    {
        QTest::addColumn<QByteArray>("name");
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QString>("value");
        const auto row = [](const char *name, const char *bytes, const char *value) {
            QTest::addRow("%s %s", name, bytes)
                << QByteArray(name) << QByteArray(bytes) << QString::fromUtf8(value);
        };
        row("ffc.delay", "c0d40100", "120");
        row("ffc.delay", "cf070000", "1 [1999]");
        row("ffc.delay", "ffffffff", "4294967 [4294967295]");
        row("shutter.offset", "7d000000", "1.25");
        row("shutter.offset", "00000000", "0.00");
        row("shutter.offset", "30f8ffff", "-20.00");
        row("shutter.offset", "1d000000", "0.29 [29]");
        row("shutter.heating", "ffffffff", "-1");
        row("camera.focus", "c5", "5");
        row("camera.focus", "45", "-5");
        row("camera.focus", "80", "0 [128]");
        row("camera.zoom", "0900", "10");
        row("camera.zoom", "ffff", "65536");
        row("serial.baud-rate", "00c20100", "115200");
        row("serial.baud-rate", "40380000", "[14400]");
        row("serial.inverted", "00", "off");
        row("serial.inverted", "01", "on");
        row("serial.inverted", "ff", "on [255]");
        row("sbus.trigger", "00", "Channel 1");
        row("sbus.trigger", "12", "Deactivated");
        row("sbus.trigger", "13", "[19]");
        row("camera.vibration-compensation", "02", "Vibration Compensation ON");
        row("periphery.gps", "01", "Quorvix GPS Receiver - based on u-blox 6 SuperSense® chipset");
        row("isotherms.lower", "effe", "-273");
        row("recording.frame-skip", "ffffffff", "4294967295");
        row("fixed.99", "00c20100", "115200");
        row("fixed.47", "0102030405060708090a0b0c", "0102030405060708090a0b0c");
        row("serial-number", "313730303939390000000000", "1700999");
        row("serial-number", "ffffffffffffffffffffffff", "ffffffffffffffffffffffff");
        row("serial-number", "310032000000000000000000", "310032000000000000000000");
        row("ardview.zoom1", "17000000ecffffff6c020000", "23, -20, 620");
        row("hdmi.zoom2", "0000000000000000000000000000", "0, 0, 0, 0, 0, 0, 0");
    }
    void showsWhatTheFormShows()
    {
        QFETCH(QByteArray, name);
        QFETCH(QByteArray, bytes);
        QFETCH(QString, value);
        const Field &field = fieldNamed(name);
        QCOMPARE(text::valueOf(field, bytesOf(recordWith(field, bytes))), value);
    }

    void tablesAreOneNumberWhereTheirEntriesAgree()
    {
        const Field &low = fieldNamed("trigger.low");
        QByteArray record = recordWith(low, QByteArray("b002").repeated(20));
        QCOMPARE(text::valueOf(low, bytesOf(record)), QStringLiteral("688"));
        record[low.wire.offset + 38] = '\xB1';
        const QString list = QStringLiteral("688, ").repeated(19) + "689";
        QCOMPARE(text::valueOf(low, bytesOf(record)), list);

        QByteArray other(416, '\x55');
        QCOMPARE(text::set(low, list, bytesOf(other)), QString());
        QCOMPARE(other, record);
    }

    void unitsFollowTheirValues()
    {
        const Field &delay = fieldNamed("ffc.delay");
        QCOMPARE(text::valueWithUnit(delay, bytesOf(recordWith(delay, "c0d40100"))),
                 QStringLiteral("120 s"));
        const Field &parity = fieldNamed("serial.parity");
        QCOMPARE(text::valueWithUnit(parity, bytesOf(recordWith(parity, "02"))),
                 QStringLiteral("even"));
        const Field &lower = fieldNamed("isotherms.lower");
        QCOMPARE(text::valueWithUnit(lower, bytesOf(recordWith(lower, "0f00"))),
                 QStringLiteral(u"15 \u00B0C"));
    }

    void storesWhatTheFormStores_data()
    {
        QTest::addColumn<QByteArray>("name");
        QTest::addColumn<QString>("value");
        QTest::addColumn<QByteArray>("bytes");
        const auto row = [](const char *name, const char *value, const char *bytes) {
            QTest::addRow("%s=%s", name, value)
                << QByteArray(name) << QString::fromUtf8(value) << QByteArray(bytes);
        };
        row("ffc.delay", "120", "c0d40100");
        row("ffc.delay", "120s", "c0d40100");
        row("ffc.delay", " 120 s ", "c0d40100");
        row("ffc.delay", "+120", "c0d40100");
        row("ffc.delay", "86400", "005c2605");
        row("ffc.delay", "1.0", "e8030000");
        row("shutter.offset", "1.25", "7d000000");
        row("shutter.offset", "0.29", "1c000000");
        row("shutter.offset", "-0.29", "e4ffffff");
        row("shutter.offset", "0.57", "38000000");
        row("shutter.offset", "-20", "30f8ffff");
        row("shutter.offset", "-0", "00000000");
        row("camera.focus", "31", "df");
        row("camera.focus", "-31", "5f");
        row("camera.focus", "0", "00");
        row("camera.exposure-correction", "-6", "fa");
        row("camera.zoom", "1", "0000");
        row("camera.zoom", "10", "0900");
        row("recording.jpeg-quality", "85 %", "55");
        row("recording.jpeg-quality", "85%", "55");
        row("isotherms.lower", "-273 °C", "effe");
        row("recording.frame-skip", "4294967295", "ffffffff");
        row("serial.baud-rate", "921600", "00100e00");
        row("serial.baud-rate", "9600 bit/s", "80250000");
        row("serial.parity", "even", "02");
        row("serial.parity", "2", "02");
        row("serial.inverted", "on", "01");
        row("serial.inverted", "off", "00");
        row("serial.inverted", "1", "01");
        row("sbus.trigger", "Channel 1", "00");
        row("sbus.trigger", "1", "01"); // the stored number, which is Channel 2
        row("sbus.trigger", "Deactivated", "12");
        row("camera.vibration-compensation", "Vibration Compensation OFF", "03");
        row("camera.vibration-compensation", "2", "02");
        row("camera.shutter-speed", "SPEED_10000_HZ", "15");
        row("camera.exposure-mode", "VISCA_AEMODE_SHUTTER_PRIORITY", "0a");
        row("extension.port0", "EXP0_MODE_EXTERNAL_SHUTTER", "05");
        row("ffc.mode", "FFC External", "0300");
        row("liveview.overlay", "ON", "01");
        row("serial-number", "1700999", "313730303939390000000000");
        row("serial-number", "", "000000000000000000000000");
        row("ardview.zoom1", "23, -20, 620", "17000000ecffffff6c020000");
        row("liveview.horizontal", "5", "2d000000");
    }
    void storesWhatTheFormStores()
    {
        QFETCH(QByteArray, name);
        QFETCH(QString, value);
        QFETCH(QByteArray, bytes);
        const Field &field = fieldNamed(name);
        QByteArray record(416, '\x55');
        QCOMPARE(text::set(field, value, bytesOf(record)), QString());
        QCOMPARE(record.mid(field.wire.offset, field.wire.size()).toHex(), bytes);
        QCOMPARE(record, recordWith(field, bytes));
    }

    void refusesWhatTheFormCannotTake_data()
    {
        QTest::addColumn<QByteArray>("name");
        QTest::addColumn<QString>("value");
        QTest::addColumn<QString>("defect");
        const auto row = [](const char *name, const char *value, const char *defect) {
            QTest::addRow("%s=%s", name, value)
                << QByteArray(name) << QString::fromUtf8(value) << QString::fromUtf8(defect);
        };
        row("ffc.delay", "86401", "is not within 0 to 86400 s");
        row("ffc.delay", "-1", "is not within 0 to 86400 s");
        row("ffc.delay", "1.5", "is no whole number");
        row("ffc.delay", "1,5", "is no number");
        row("ffc.delay", "", "is no number");
        row("ffc.delay", "s", "is no number");
        row("ffc.delay", "120 ms", "is no number");
        row("ffc.delay", "120 s s", "is no number");
        row("ffc.delay", "0x10", "is no number");
        row("ffc.delay", "1e3", "is no number");
        row("ffc.delay", "nan", "is no number");
        row("ffc.delay", "99999999999999999999999999", "is no whole number");
        row("shutter.offset", "20.01", "is not within -20.00 to 20.00");
        row("shutter.offset", "0.295", "has more than 2 decimals");
        row("serial.parity", "Even", "is none of \"none\", \"odd\", \"even\"");
        row("serial.parity", "3", "is none of \"none\", \"odd\", \"even\"");
        row("serial.parity", "", "is none of \"none\", \"odd\", \"even\"");
        row("serial.baud-rate", "14400",
            "is none of \"1200\", \"2400\", \"4800\", \"9600\", \"19200\", \"38400\", \"57600\", "
            "\"115200\", \"230400\", \"460800\", \"921600\"");
        row("serial.inverted", "yes", "is none of \"off\", \"on\"");
        row("trigger.low", "0", "is not within 1 to 2047");
        row("trigger.low", "1, 2", "has 2 numbers instead of 20");
        row("hdmi.zoom1", "0", "has 1 numbers instead of 7");
        row("fixed.61", "8", "cannot be set");
        row("free.73", "0", "cannot be set");
        row("serial-number", "12345678", "is longer than 7 characters");
        row("serial-number", "17ä", "has characters that are not ASCII");
    }
    void refusesWhatTheFormCannotTake()
    {
        QFETCH(QByteArray, name);
        QFETCH(QString, value);
        QFETCH(QString, defect);
        QByteArray record(416, '\x55');
        QCOMPARE(text::set(fieldNamed(name), value, bytesOf(record)), defect);
        QCOMPARE(record, QByteArray(416, '\x55'));
    }

    void everyChoiceAndEveryEndComesBack_data() { everyLayout(); }
    void everyChoiceAndEveryEndComesBack()
    {
        QFETCH(const Layout *, layout);
        for (const Field &field : *layout) {
            if (!field.isEditable() || field.wire.isText)
                continue;
            QStringList values;
            if (field.vocabulary)
                for (const Choice &choice : *field.vocabulary)
                    values << QString::fromUtf8(choice.text);
            else
                for (const double end : {field.range.minimum, field.range.maximum})
                    values << QString::number(end, 'f', field.codec.decimals);
            for (QString value : values) {
                if (!field.oneForAll && field.wire.count > 1)
                    value =
                        QStringList(QVector<QString>(field.wire.count, value).toList()).join(", ");
                QByteArray record(layout->size, '\x55');
                QCOMPARE(text::set(field, value, bytesOf(record)), QString());
                QCOMPARE(text::valueOf(field, bytesOf(record)), value);
            }
        }
    }

    /// What is printed without brackets can be typed, and gives the same bytes.
    void printedValuesCanBeTyped_data() { everyLayout(); }
    void printedValuesCanBeTyped()
    {
        QFETCH(const Layout *, layout);
        QRandomGenerator random(1234);
        int typed = 0;
        for (int round = 0; round < 300; ++round) {
            QByteArray record = randomRecord(*layout, random);
            for (const Field &field : *layout) {
                if (round % 2) // small numbers
                    for (int i = 0; i < field.wire.size(); ++i)
                        if (i % field.wire.width)
                            record[field.wire.offset + i] = 0;
                const QString value = text::valueOf(field, bytesOf(record));
                QByteArray other = record;
                other.replace(field.wire.offset, field.wire.size(),
                              QByteArray(field.wire.size(), '\x55'));
                if (!text::set(field, value, bytesOf(other)).isEmpty())
                    continue;
                ++typed;
                QVERIFY2(other == record, qPrintable(field.name + (" " + value)));
            }
        }
        QVERIFY(typed > 300);
    }
};

QTEST_APPLESS_MAIN(TestRecordText)
#include "tst_recordtext.moc"
