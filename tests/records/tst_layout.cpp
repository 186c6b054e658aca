// Blank and sealed records, what judge() says of good and bad ones, and what differs between two.

#include "records/Layout.h"
#include "support/layouts.h"

#include <memory>

namespace {

/// Judges `size` bytes that end where the memory ends, so that a sanitizer sees what is read
/// behind.
Verdict judgeExactly(const QByteArray &bytes)
{
    const auto size = std::size_t(bytes.size());
    const std::unique_ptr<uchar[]> copy(new uchar[size]);
    std::copy(bytes.begin(), bytes.end(), copy.get());
    return judge(copy.get(), bytes.size());
}

/// The verdict from the records' description, written down a second time.
Defect defectOf(const QByteArray &bytes)
{
    if (bytes.size() < 12)
        return Defect::NoHeader;
    const auto key = records::get<quint32>(bytes, 0);
    const auto length = records::get<quint32>(bytes, 4);
    const auto version = records::get<quint32>(bytes, 8);
    if (key == records::key20)
        return Defect::NotImplemented;
    if (key != records::keyBlend && key != records::keyBlendZoom)
        return Defect::UnknownDevice;
    const bool zoom = key == records::keyBlendZoom;
    const quint32 known = zoom ? 20190805 : 20181212;
    if (version != known)
        return version < known ? Defect::Older : Defect::Newer;
    const int size = zoom ? 223 : 207;
    if (bytes.size() < size)
        return Defect::TooShort;
    if (length != (zoom ? 209U : 193U))
        return Defect::WrongLength;
    const bool sealed =
        records::get<quint16>(bytes, size - 2) == records::crc16(bytes.left(size - 2));
    return sealed ? Defect::None : Defect::WrongCrc;
}

} // namespace

Q_DECLARE_METATYPE(Defect)

class TestLayout : public QObject
{
    Q_OBJECT

private slots:
    void blankRecordsAreValid_data() { everyConfigurationLayout(); }
    void blankRecordsAreValid()
    {
        QFETCH(const Layout *, layout);
        const Verdict verdict = judgeExactly(blank(*layout));
        QVERIFY(verdict.isValid());
        QCOMPARE(verdict.layout, layout);
    }

    void sealWritesHeaderAndCrc()
    {
        // The body of a Blend is all zeros: its CRC-16 is known.
        QByteArray record(207, '\0');
        seal(layouts::blend, record);
        QCOMPARE(record.left(12).toHex(), QByteArray("e66c2ac9c1000000dcf03301"));
        QCOMPARE(record.mid(12, 193), QByteArray(193, '\0'));
        QCOMPARE(record.right(2).toHex(), QByteArray("767e"));

        QByteArray zoom(223, '\0');
        seal(layouts::blendZoom, zoom);
        QCOMPARE(zoom.left(12).toHex(), QByteArray("9e13afa0d100000055163401"));
    }

    void sealLeavesPaddingAndFactoryRecordsAlone()
    {
        QByteArray padded = blank(layouts::blend) + "abc";
        const QByteArray before = padded;
        seal(layouts::blend, padded);
        QCOMPARE(padded, before);
        QByteArray factory(32, '\x5A');
        seal(layouts::blendFactory, factory);
        QCOMPARE(factory, QByteArray(32, '\x5A'));
    }

    void saysWhatIsWrong_data()
    {
        QTest::addColumn<QByteArray>("record");
        QTest::addColumn<Defect>("defect");
        QTest::addColumn<quint32>("found");
        const auto changed = [](QByteArray record, int offset, quint32 number) {
            records::put<quint32>(record, offset, number);
            return record;
        };
        const QByteArray blend = records::sealed(records::blend());
        QTest::newRow("nothing") << QByteArray() << Defect::NoHeader << 0U;
        QTest::newRow("eleven bytes") << blend.left(11) << Defect::NoHeader << 11U;
        QTest::newRow("header only") << blend.left(12) << Defect::TooShort << 12U;
        QTest::newRow("last byte missing") << blend.left(206) << Defect::TooShort << 206U;
        QTest::newRow("valid") << blend << Defect::None << 0U;
        QTest::newRow("valid, padded") << blend + '\x01' << Defect::None << 0U;
        QTest::newRow("unknown key")
            << changed(blend, 0, 0xA0AF13A0) << Defect::UnknownDevice << 0xA0AF13A0U;
        QTest::newRow("2.0") << changed(blend, 0, 0xA0AF139F) << Defect::NotImplemented
                             << 0xA0AF139FU;
        QTest::newRow("a day older") << changed(blend, 8, 20181211) << Defect::Older << 20181211U;
        QTest::newRow("a day newer") << changed(blend, 8, 20181213) << Defect::Newer << 20181213U;
        QTest::newRow("newer goes before short")
            << changed(blend.left(20), 8, 0xFFFFFFFF) << Defect::Newer << 0xFFFFFFFFU;
        QTest::newRow("short goes before length")
            << changed(blend.left(20), 4, 1) << Defect::TooShort << 20U;
        QTest::newRow("length goes before CRC")
            << changed(blend, 4, 192) << Defect::WrongLength << 192U;
        QTest::newRow("CRC") << blend.left(206) + '\x7F' << Defect::WrongCrc << 0x7F76U;
        QTest::newRow("the other model's key")
            << changed(blend, 0, 0xA0AF139E) << Defect::Older << 20181212U;
    }
    void saysWhatIsWrong()
    {
        QFETCH(QByteArray, record);
        QFETCH(Defect, defect);
        QFETCH(quint32, found);
        const Verdict verdict = judgeExactly(record);
        QCOMPARE(int(verdict.defect), int(defect));
        QCOMPARE(verdict.found, found);
        QCOMPARE(verdict.isValid(), defect == Defect::None);
    }

    void judgesAnythingOfAnySize()
    {
        QRandomGenerator random(20190805);
        const QByteArray valid[] = {records::sealed(records::blend()),
                                    records::sealed(records::blendZoom())};
        QVector<int> seen(int(Defect::WrongCrc) + 1, 0);
        for (int round = 0; round < 20000; ++round) {
            QByteArray bytes = valid[round % 2];
            switch (random.bounded(4)) {
            case 0: // anything
                for (char &byte : bytes)
                    byte = char(random.generate());
                break;
            case 1: // a valid record with one bit changed
                bytes[random.bounded(bytes.size())] =
                    char(bytes[random.bounded(bytes.size())] ^ (1 << random.bounded(8)));
                break;
            case 2: // one of the header's numbers replaced
                records::put<quint32>(bytes, 4 * random.bounded(3),
                                      random.bounded(2) ? records::key20 : random.generate());
                break;
            default:
                break;
            }
            if (random.bounded(2))
                bytes.resize(random.bounded(300)); // longer ones end with anything
            const Verdict verdict = judgeExactly(bytes);
            QCOMPARE(int(verdict.defect), int(defectOf(bytes)));
            ++seen[int(verdict.defect)];
        }
        for (const int times : qAsConst(seen))
            QVERIFY(times > 0);
    }

    void changedFieldsDiffer_data() { everyLayout(); }
    void changedFieldsDiffer()
    {
        QFETCH(const Layout *, layout);
        QRandomGenerator random(7);
        const QByteArray before = randomRecord(*layout, random);
        QVERIFY(differences(*layout, {before, before}).empty());
        QVERIFY(differences(*layout, {before, before, before}).empty());
        for (const Field &field : *layout)
            for (int i = 0; i < field.wire.size(); ++i) {
                QByteArray after = before;
                after[field.wire.offset + i] = char(after[field.wire.offset + i] ^ 0x80);
                const std::vector<const Field *> one{&field};
                QVERIFY2(differences(*layout, {before, after}) == one, field.name);
                QVERIFY2(differences(*layout, {before, before, after}) == one, field.name);
                QVERIFY2(differences(*layout, {before, after, after}) == one, field.name);
            }
    }

    void differencesComeInTheOrderOfTheBytes()
    {
        QByteArray before = blank(layouts::blend);
        QByteArray after = before;
        after[153] = 1; // the two tables are one field each, however many entries differ
        after[191] = 1;
        after[73] = 1;
        after[12] = 1;
        QStringList names;
        for (const Field *field : differences(layouts::blend, {before, after}))
            names << field->name;
        QCOMPARE(names, QStringList({"serial.baud-rate", "free.73", "trigger.high"}));
    }

    void headerCrcAndPaddingAreNoDifferences()
    {
        const QByteArray before = blank(layouts::blend);
        QByteArray after = before + "padding";
        after[0] = 0;
        after[206] = 0x55;
        QVERIFY(differences(layouts::blend, {before, after}).empty());
    }

    void shortRecordsDifferInWhatTheyLack()
    {
        const QByteArray whole = blank(layouts::blend);
        const auto differing = differences(layouts::blend, {whole, whole.left(193)});
        QCOMPARE(differing.size(), std::size_t(1));
        QCOMPARE(differing.front()->name, "free.193");
        QVERIFY(differences(layouts::blend, {QByteArray(), QByteArray()}).empty());
        QVERIFY(differences(layouts::blend, {}).empty());
    }

    void differencesAreQuick()
    {
        QRandomGenerator random(9);
        const std::vector<QByteArray> pair{randomRecord(layouts::blendZoom, random),
                                           randomRecord(layouts::blendZoom, random)};
        QVERIFY(!differences(layouts::blendZoom, pair).empty());
        QBENCHMARK
        {
            differences(layouts::blendZoom, pair);
        }
    }
};

QTEST_APPLESS_MAIN(TestLayout)
#include "tst_layout.moc"
