// Records as JSON objects of their fields, and back.

#include "records/json.h"
#include "support/layouts.h"

#include <QJsonArray>
#include <QJsonDocument>

using json::Values;

namespace {

QJsonValue valueAt(const Layout &layout, const char *name, const QByteArray &hex)
{
    const Field *field = layout.field(QLatin1String(name));
    QByteArray record(layout.size, '\x55');
    const QByteArray bytes = QByteArray::fromHex(hex);
    record.replace(field->wire.offset, bytes.size(), bytes);
    return json::valueOf(*field, bytesOf(record));
}

QJsonObject raw(const QJsonValue &value)
{
    return {{"raw", value}};
}

/// Through the text of a document and back.
QJsonObject printed(const QJsonObject &object)
{
    return QJsonDocument::fromJson(QJsonDocument(object).toJson()).object();
}

} // namespace

class TestRecordJson : public QObject
{
    Q_OBJECT

private slots:
    void valuesAreThoseOfTheForm()
    {
        const Layout &blend = layouts::blend;
        QCOMPARE(valueAt(blend, "ffc.delay", "c0d40100"), QJsonValue(120));
        QCOMPARE(valueAt(blend, "shutter.offset", "7d000000"), QJsonValue(1.25));
        QCOMPARE(valueAt(blend, "camera.focus", "45"), QJsonValue(-5));
        QCOMPARE(valueAt(blend, "serial.parity", "02"), QJsonValue("even"));
        QCOMPARE(valueAt(blend, "serial.inverted", "01"), QJsonValue("on"));
        QCOMPARE(valueAt(blend, "trigger.low", QByteArray("b002").repeated(20)), QJsonValue(688));
        QCOMPARE(valueAt(layouts::blendZoom, "camera.zoom", "0900"), QJsonValue(10));
        QCOMPARE(valueAt(layouts::blendFactory, "serial-number", "313730303939390000000000"),
                 QJsonValue("1700999"));
        QCOMPARE(valueAt(layouts::blendZoomFactory, "ardview.zoom1", "17000000ecffffff6c020000"),
                 QJsonValue(QJsonArray{23, -20, 620}));
        QCOMPARE(valueAt(layouts::blendZoomFactory, "hdmi.zoom1", QByteArray("0000").repeated(7)),
                 QJsonValue(QJsonArray{0, 0, 0, 0, 0, 0, 0}));
    }

    void numbersBeyondTheRangeArePlain()
    {
        QCOMPARE(valueAt(layouts::blend, "shutter.heating", "ffffffff"), QJsonValue(-1));
        QCOMPARE(valueAt(layouts::blend, "ffc.delay", "804a5d05"), QJsonValue(90000));
        QCOMPARE(valueAt(layouts::blendZoom, "camera.zoom", "1400"), QJsonValue(21));
    }

    void whatCannotBeTypedIsRaw()
    {
        const Layout &blend = layouts::blend;
        QCOMPARE(valueAt(blend, "camera.focus", "80"), QJsonValue(raw(128)));
        QCOMPARE(valueAt(blend, "ffc.delay", "cf070000"), QJsonValue(raw(1999)));
        QCOMPARE(valueAt(blend, "shutter.offset", "1d000000"), QJsonValue(raw(29)));
        QCOMPARE(valueAt(blend, "shutter.offset", "e3ffffff"), QJsonValue(raw(-29)));
        QCOMPARE(valueAt(blend, "extension.port0", "c8"), QJsonValue(raw(200)));
        QCOMPARE(valueAt(blend, "serial.inverted", "02"), QJsonValue(raw(2)));
        QCOMPARE(valueAt(blend, "fixed.58", "4006"), QJsonValue(raw(1600)));
        QCOMPARE(valueAt(blend, "free.84", "0102030405060708"),
                 QJsonValue(raw("0102030405060708")));
        QCOMPARE(valueAt(layouts::blendFactory, "serial-number", "ffffffffffffffffffffffff"),
                 QJsonValue(raw("ffffffffffffffffffffffff")));
    }

    void tableOfDifferentEntriesIsAList()
    {
        const QJsonArray list =
            valueAt(layouts::blend, "trigger.low", QByteArray("b002").repeated(19) + "0000")
                .toArray();
        QCOMPARE(list.size(), 20);
        QCOMPARE(list.first(), QJsonValue(688));
        QCOMPARE(list.last(), QJsonValue(0));
    }

    void fixedAndFreeBytesAreCarriedOnlyIfTheyDiffer()
    {
        QByteArray record = blank(layouts::blendZoom);
        const auto names = [&] {
            QStringList carried;
            const QJsonObject fields = json::fieldsOf(layouts::blendZoom, bytesOf(record));
            for (const QString &name : fields.keys())
                if (name.startsWith("fixed.") || name.startsWith("free."))
                    carried << name;
            return carried;
        };
        QCOMPARE(names(), QStringList());
        record[65] = 2;
        record[219] = 1;
        QCOMPARE(names(), QStringList({"fixed.65", "free.214"}));
    }

    void everyRecordComesBack_data() { everyLayout(); }
    void everyRecordComesBack()
    {
        QFETCH(const Layout *, layout);
        QRandomGenerator random(20181212);
        for (int round = 0; round < 200; ++round) {
            QByteArray record = randomRecord(*layout, random);
            if (round % 2) { // mostly what the tool writes
                QByteArray plain = blank(*layout);
                for (int i = 0; i < 20; ++i) {
                    const int offset = 12 + random.bounded(layout->size - 14);
                    plain[offset] = record[offset];
                }
                seal(*layout, plain);
                record = plain;
            }
            const QJsonObject fields = printed(json::fieldsOf(*layout, bytesOf(record)));
            QCOMPARE(json::missingSettings(*layout, fields), QStringList());
            QByteArray built = blank(*layout);
            QCOMPARE(json::setFields(*layout, fields, Values::Carried, bytesOf(built)),
                     QStringList());
            QCOMPARE(built.toHex(), record.toHex());
        }
    }

    void everyStoredByteOfEveryFieldComesBack_data() { everyLayout(); }
    void everyStoredByteOfEveryFieldComesBack()
    {
        QFETCH(const Layout *, layout);
        for (const Field &field : *layout) {
            const int cases = field.wire.width == 1 ? 256 : 65536;
            for (int low = 0; low < cases; low += field.wire.width == 1 ? 1 : 17) {
                QByteArray record(layout->size, '\0');
                for (int i = 0; i < field.wire.size(); ++i)
                    record[field.wire.offset + i] = char(low >> (i % 2 * 8));
                QByteArray built(layout->size, '\0');
                const QString defect = json::set(field, json::valueOf(field, bytesOf(record)),
                                                 Values::Carried, bytesOf(built));
                QVERIFY2(
                    defect.isEmpty() && built == record,
                    qPrintable(QStringLiteral("%1 %2: %3").arg(field.name).arg(low).arg(defect)));
                if (field.wire.count > 12)
                    low += 997; // tables are slow, and their entries alike
            }
        }
    }

    void onOffTakesTruthValues()
    {
        QByteArray record(207, '\0');
        const Field &inverted = *layouts::blend.fieldAt(18);
        QCOMPARE(json::set(inverted, true, Values::Typed, bytesOf(record)), QString());
        QCOMPARE(record[18], '\x01');
        QCOMPARE(json::set(inverted, false, Values::Typed, bytesOf(record)), QString());
        QCOMPARE(record[18], '\x00');
    }

    void choicesAreGivenByTextOrStoredNumber()
    {
        QByteArray record(223, '\0');
        const Field &vibration = *layouts::blendZoom.fieldAt(72);
        QCOMPARE(json::set(vibration, 3, Values::Typed, bytesOf(record)), QString());
        QCOMPARE(record[72], '\x03');
        QCOMPARE(json::set(vibration, "Vibration Compensation ON", Values::Typed, bytesOf(record)),
                 QString());
        QCOMPARE(record[72], '\x02');
    }

    void typedValuesKeepToTheRange_data()
    {
        QTest::addColumn<QByteArray>("name");
        QTest::addColumn<QJsonValue>("value");
        QTest::addColumn<QString>("defect");
        QTest::newRow("number") << QByteArray("ffc.delay") << QJsonValue(86401)
                                << "is not within 0 to 86400 s";
        QTest::newRow("choice") << QByteArray("serial.parity") << QJsonValue(3) << "is no choice";
        QTest::newRow("raw") << QByteArray("serial.parity") << QJsonValue(raw(2))
                             << "cannot be given as a raw value";
        QTest::newRow("raw bytes") << QByteArray("free.84") << QJsonValue(raw("0000000000000000"))
                                   << "cannot be given as a raw value";
        QTest::newRow("table") << QByteArray("trigger.low") << QJsonValue(2048)
                               << "is not within 1 to 2047";
    }
    void typedValuesKeepToTheRange()
    {
        QFETCH(QByteArray, name);
        QFETCH(QJsonValue, value);
        QFETCH(QString, defect);
        QByteArray record(207, '\x55');
        const Field &field = *layouts::blend.field(QLatin1String(name));
        QCOMPARE(json::set(field, value, Values::Typed, bytesOf(record)), defect);
        QCOMPARE(record, QByteArray(207, '\x55'));
        QCOMPARE(json::set(field, value, Values::Carried, bytesOf(record)), QString());
        QVERIFY(record != QByteArray(207, '\x55'));
    }

    void refusesWhatNoRecordCanHold_data()
    {
        QTest::addColumn<QByteArray>("name");
        QTest::addColumn<QJsonValue>("value");
        QTest::addColumn<QString>("defect");
        const auto row = [](const char *what, const char *name, const QJsonValue &value,
                            const char *defect) {
            QTest::newRow(what) << QByteArray(name) << value << QString::fromUtf8(defect);
        };
        row("too large", "ffc.delay", 4294968, "cannot be stored");
        row("below", "ffc.delay", -1, "cannot be stored");
        row("far too large", "ffc.delay", 1e300, "is no whole number");
        row("fraction", "ffc.delay", 1.5, "is no whole number");
        row("decimals", "shutter.offset", 0.295, "has more than 2 decimals");
        row("focus beyond its bits", "camera.focus", 64, "cannot be stored");
        row("text", "ffc.delay", "soon", "is no number");
        row("truth", "ffc.delay", true, "is of a wrong kind");
        row("null", "ffc.delay", QJsonValue(), "is of a wrong kind");
        row("list", "ffc.delay", QJsonArray{1}, "is of a wrong kind");
        row("object", "ffc.delay", QJsonObject{{"raw", 1}, {"more", 2}}, "is of a wrong kind");
        row("unknown text", "serial.parity", "mark", "is none of \"none\", \"odd\", \"even\"");
        row("no byte", "serial.parity", 256, "is no choice");
        row("no number of a choice", "serial.parity", 0.5, "is no choice");
        row("raw too large", "serial.parity", raw(256),
            "has a raw value that is no whole number of 0 to 255");
        row("raw fraction", "camera.exposure-correction", raw(1.5),
            "has a raw value that is no whole number of -128 to 127");
        row("raw below", "camera.exposure-correction", raw(-129),
            "has a raw value that is no whole number of -128 to 127");
        row("raw of another size", "free.84", raw("00"),
            "has a raw value that is not 8 hexadecimal bytes");
        row("raw digits", "free.84", raw("000000000000000g"),
            "has a raw value that is not 8 hexadecimal bytes");
        row("another constant", "fixed.58", 1601, "cannot be set");
        row("short list", "trigger.low", QJsonArray{1, 2}, "has 2 entries instead of 20");
        row("entry too large", "trigger.low", 65536, "cannot be stored");
    }
    void refusesWhatNoRecordCanHold()
    {
        QFETCH(QByteArray, name);
        QFETCH(QJsonValue, value);
        QFETCH(QString, defect);
        QByteArray record(207, '\x55');
        const Field &field = *layouts::blend.field(QLatin1String(name));
        QCOMPARE(json::set(field, value, Values::Carried, bytesOf(record)), defect);
        QCOMPARE(record, QByteArray(207, '\x55'));
    }

    void aListIsStoredAsAWholeOrNotAtAll()
    {
        QJsonArray list;
        for (int i = 0; i < 19; ++i)
            list << 5;
        list << "x";
        QByteArray record(207, '\x55');
        QCOMPARE(json::set(*layouts::blend.fieldAt(113), list, Values::Carried, bytesOf(record)),
                 QStringLiteral("is of a wrong kind"));
        QCOMPARE(record, QByteArray(207, '\x55'));
    }

    void defectsAreListedTogether()
    {
        QByteArray record = blank(layouts::blend);
        const QJsonObject fields{{"camera.zoom", 3},
                                 {"ffc.delay", "soon"},
                                 {"serial.parity", "even"},
                                 {"trigger.low", QJsonArray()}};
        QCOMPARE(json::setFields(layouts::blend, fields, Values::Typed, bytesOf(record)),
                 QStringList({"camera.zoom is no field", "ffc.delay is no number",
                              "trigger.low has 0 entries instead of 20"}));
    }

    void missingSettingsAreThoseThatCanBeSet()
    {
        const QStringList missing = json::missingSettings(layouts::blend, {{"ffc.delay", 1}});
        QVERIFY(missing.contains("serial.parity"));
        QVERIFY(missing.contains("liveview.overlay"));
        QVERIFY(!missing.contains("ffc.delay"));
        QVERIFY(!missing.contains("fixed.58"));
        QVERIFY(!missing.contains("free.73"));
    }

    void describesFields()
    {
        const auto description = [](const Layout &layout, const char *name) {
            return QJsonDocument(json::describe(*layout.field(QLatin1String(name))))
                .toJson(QJsonDocument::Compact);
        };
        QCOMPARE(description(layouts::blend, "ffc.delay"),
                 QByteArray("{\"choices\":[],\"count\":1,\"maximum\":86400,\"minimum\":0,"
                            "\"name\":\"ffc.delay\",\"offset\":69,\"role\":\"setting\",\"size\":4,"
                            "\"title\":\"FFC delay time\",\"unit\":\"s\"}"));
        QCOMPARE(description(layouts::blendZoom, "camera.vibration-compensation"),
                 QByteArray("{\"choices\":[{\"stored\":3,\"text\":\"Vibration Compensation OFF\"},"
                            "{\"stored\":2,\"text\":\"Vibration Compensation ON\"}],\"count\":1,"
                            "\"maximum\":null,\"minimum\":null,"
                            "\"name\":\"camera.vibration-compensation\",\"offset\":72,"
                            "\"role\":\"setting\",\"size\":1,"
                            "\"title\":\"Vibration Compensation\",\"unit\":\"\"}"));
        QCOMPARE(description(layouts::blend, "trigger.high"),
                 QByteArray("{\"choices\":[],\"count\":20,\"maximum\":2047,\"minimum\":1,"
                            "\"name\":\"trigger.high\",\"offset\":153,\"role\":\"setting\","
                            "\"size\":40,\"title\":\"Trigger high\",\"unit\":\"\"}"));
        QCOMPARE(description(layouts::blend, "fixed.60"),
                 QByteArray("{\"choices\":[],\"count\":1,\"maximum\":1200,\"minimum\":1200,"
                            "\"name\":\"fixed.60\",\"offset\":60,\"role\":\"fixed\",\"size\":2,"
                            "\"title\":\"fixed\",\"unit\":\"\"}"));
        QVERIFY(description(layouts::blendZoom, "sbus.colour-map-switch-mode")
                    .contains("\"role\":\"write-only\""));
        QVERIFY(description(layouts::blend, "free.84").contains("\"role\":\"free\""));
    }

    void roundTripIsQuick()
    {
        QRandomGenerator random(3);
        const QByteArray record = randomRecord(layouts::blendZoom, random);
        QByteArray built = blank(layouts::blendZoom);
        QBENCHMARK
        {
            json::setFields(layouts::blendZoom, json::fieldsOf(layouts::blendZoom, bytesOf(record)),
                            Values::Carried, bytesOf(built));
        }
        QCOMPARE(built, record);
    }
};

QTEST_APPLESS_MAIN(TestRecordJson)
#include "tst_recordjson.moc"
