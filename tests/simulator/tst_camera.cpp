#include "simulator/Camera.h"
#include "simulator/DefaultRecords.h"

#include "support/records.h"
#include "support/wire.h"

#include <QtTest>

namespace {

QByteArray with(QByteArray record, int offset, const QByteArray &bytes)
{
    return record.replace(offset, bytes.size(), bytes);
}

QByteArray padded(const QByteArray &record)
{
    return record + QByteArray((4 - record.size() % 4) % 4, '\0');
}

quint16 level(const QByteArray &payload, int channel)
{
    return qFromLittleEndian<quint16>(payload.constData() + 2 * (channel - 1));
}

struct Bench
{
    explicit Bench(const QString &modelName = "blend-zoom")
        : model(models::ofOptionName(modelName))
        , camera({model, "4711", 20190912, defaultConfiguration(*model),
                  defaultFactoryRecord(*model, "4711"), [this] { return now; },
                  [this](Camera::Record kind, const QByteArray &record) {
                      kept[int(kind)] << record;
                      return storeWorks;
                  }})
    {
    }

    const Model *model;
    qint64 now = 1700000000000;
    bool storeWorks = true;
    QList<QByteArray> kept[2];
    Camera camera;
};

} // namespace

class tst_Camera : public QObject
{
    Q_OBJECT

private slots:
    void tellsItsIdentity_data()
    {
        QTest::addColumn<QString>("model");
        QTest::addColumn<quint32>("key");
        QTest::newRow("blend") << "blend" << 0xC92A6CE6U;
        QTest::newRow("blend zoom") << "blend-zoom" << 0xA0AF139EU;
        QTest::newRow("2.0") << "2.0" << 0xA0AF139FU;
    }
    void tellsItsIdentity()
    {
        QFETCH(QString, model);
        QFETCH(quint32, key);
        Bench bench(model);
        const auto answer = bench.camera.handle(116, {});
        QCOMPARE(answer.command, 216U);
        QCOMPARE(answer.payload, wire::littleEndian(key) + wire::littleEndian<quint32>(20190912) +
                                     QByteArray("4711\0", 5));
    }

    void sendsAConfigurationThatIsPlausibleAndValid_data()
    {
        QTest::addColumn<QString>("model");
        QTest::addColumn<QByteArray>("header");
        QTest::addColumn<int>("size");
        QTest::addColumn<int>("jointOffset");
        QTest::newRow("blend") << "blend" << QByteArray::fromHex("e66c2ac9c1000000dcf03301") << 207
                               << 113;
        QTest::newRow("blend zoom")
            << "blend-zoom" << QByteArray::fromHex("9e13afa0d100000055163401") << 223 << 129;
    }
    void sendsAConfigurationThatIsPlausibleAndValid()
    {
        QFETCH(QString, model);
        QFETCH(QByteArray, header);
        QFETCH(int, size);
        QFETCH(int, jointOffset);
        Bench bench(model);
        const auto answer = bench.camera.handle(102, {});
        QCOMPARE(answer.command, 202U);
        QCOMPARE(answer.payload.size(), size);
        QCOMPARE(answer.payload.left(12), header);
        QCOMPARE(answer.payload, records::sealed(answer.payload));
        QCOMPARE(answer.payload.mid(12, 4), wire::littleEndian<quint32>(115200));
        QCOMPARE(int(answer.payload.at(17)), 1);
        const auto low = qFromLittleEndian<quint16>(answer.payload.constData() + jointOffset);
        const auto high = qFromLittleEndian<quint16>(answer.payload.constData() + jointOffset + 40);
        QVERIFY(1 <= low && low < high && high <= 2047);
    }

    void carriesTheFixedBytesOfTheBlendZoomRecord()
    {
        Bench bench;
        const QByteArray record = bench.camera.handle(102, {}).payload;
        QCOMPARE(int(record.at(61)), 8);
        QCOMPARE(record.mid(64, 5), QByteArray::fromHex("1101030307"));
        QCOMPARE(record.mid(73, 3), QByteArray::fromHex("008080"));
        QCOMPARE(record.mid(99, 8), QByteArray::fromHex("00c2010008000100"));
        QCOMPARE(record.mid(209, 5), QByteArray::fromHex("b80b000000"));
        QCOMPARE(record.mid(214, 6), QByteArray(6, '\0'));
    }

    void carriesTheFixedBytesOfTheBlendRecord()
    {
        Bench bench("blend");
        const QByteArray record = bench.camera.handle(102, {}).payload;
        QCOMPARE(record.mid(58, 4), QByteArray::fromHex("4006b004"));
        QCOMPARE(record.mid(45, 12), QByteArray(12, '\0'));
        QCOMPARE(record.mid(84, 8), QByteArray(8, '\0'));
        QCOMPARE(record.mid(193, 12), QByteArray(12, '\0'));
    }

    void answersTheControlStructureRequestLikeTheConfigurationRequest()
    {
        Bench bench;
        const auto answer = bench.camera.handle(108, {});
        QCOMPARE(answer.command, 208U);
        QCOMPARE(answer.payload, bench.camera.handle(102, {}).payload);
    }

    void storesAWrittenConfigurationWithoutItsPadding_data() { bothModels(); }
    void storesAWrittenConfigurationWithoutItsPadding()
    {
        QFETCH(QString, model);
        Bench bench(model);
        const QByteArray record =
            records::sealed(with(bench.camera.handle(102, {}).payload, 26, wire::littleEndian(77)));
        const auto answer = bench.camera.handle(101, padded(record));
        QCOMPARE(answer.command, 201U);
        QCOMPARE(answer.payload, QByteArray());
        QCOMPARE(bench.camera.handle(102, {}).payload, record);
        QCOMPARE(bench.kept[int(Camera::Record::Configuration)], QList<QByteArray>{record});
    }

    void refusesADefectiveRecord_data()
    {
        QTest::addColumn<QString>("model");
        QTest::addColumn<QByteArray>("record");
        QTest::addColumn<QString>("why");
        for (const QString &model : {QString("blend"), QString("blend-zoom")}) {
            const QByteArray good = defaultConfiguration(*models::ofOptionName(model));
            const QByteArray other = defaultConfiguration(
                *models::ofOptionName(model == "blend" ? "blend-zoom" : "blend"));
            const auto row = [&](const char *what, const QByteArray &record, const QString &why) {
                QTest::newRow(qPrintable(model + ": " + what)) << model << record << why;
            };
            row("empty", {}, "0 bytes");
            row("one byte short", good.chopped(1), "bytes instead of");
            row("four bytes long", padded(good) + QByteArray(4, '\0'), "bytes instead of");
            row("record of the other model", other, "bytes instead of");
            row("key", records::sealed(with(good, 0, wire::littleEndian(0xA0AF139FU))),
                "device key");
            row("key of the other model", records::sealed(with(good, 0, other.left(4))),
                model == "blend" ? "wrong device key 0xa0af139e" : "wrong device key 0xc92a6ce6");
            row("unknown key", records::sealed(with(good, 0, wire::littleEndian(0x17U))),
                "wrong device key 0x00000017");
            row("data length", records::sealed(with(good, 4, wire::littleEndian(192))),
                "data length");
            row("newer version",
                records::sealed(
                    with(good, 8,
                         wire::littleEndian(qFromLittleEndian<quint32>(good.constData() + 8) + 1))),
                "version");
            row("older version", records::sealed(with(good, 8, wire::littleEndian(20170101))),
                "version");
            row("one bit of the body", with(good, 100, QByteArray(1, char(good.at(100) ^ 1))),
                "CRC-16");
            row("one bit of the CRC",
                with(good, good.size() - 1, QByteArray(1, char(good.at(good.size() - 1) ^ 0x80))),
                "CRC-16");
        }
    }
    void refusesADefectiveRecord()
    {
        QFETCH(QString, model);
        QFETCH(QByteArray, record);
        QFETCH(QString, why);
        Bench bench(model);
        const QByteArray before = bench.camera.handle(102, {}).payload;
        for (const quint32 command : {101U, 122U}) {
            const auto answer = bench.camera.handle(command, record);
            QCOMPARE(answer.command, command + 200);
            QCOMPARE(answer.payload, QByteArray());
            QVERIFY2(answer.note.contains(why), qPrintable(answer.note));
        }
        QCOMPARE(bench.camera.handle(102, {}).payload, before);
        QCOMPARE(bench.camera.activeConfiguration(), before);
        QVERIFY(bench.kept[int(Camera::Record::Configuration)].isEmpty());
    }

    void refusesAWriteThatCannotBeStored()
    {
        Bench bench;
        bench.storeWorks = false;
        const QByteArray before = bench.camera.handle(102, {}).payload;
        const QByteArray record = records::sealed(with(before, 26, wire::littleEndian(77)));
        QCOMPARE(bench.camera.handle(101, record).command, 301U);
        QCOMPARE(bench.camera.handle(102, {}).payload, before);
        QCOMPARE(bench.camera.handle(110, QByteArray(416, 'x')).command, 310U);
        QVERIFY(bench.camera.handle(111, {}).payload != QByteArray(416, 'x'));
    }

    void usesLiveSettingsUntilTheRestartWithoutStoringThem_data() { bothModels(); }
    void usesLiveSettingsUntilTheRestartWithoutStoringThem()
    {
        QFETCH(QString, model);
        Bench bench(model);
        const QByteArray before = bench.camera.handle(102, {}).payload;
        const QByteArray live = records::sealed(with(before, 34, wire::littleEndian(99)));
        QCOMPARE(bench.camera.handle(122, padded(live)).command, 222U);
        QCOMPARE(bench.camera.activeConfiguration(), live);
        QCOMPARE(bench.camera.handle(102, {}).payload, before);
        QVERIFY(bench.kept[int(Camera::Record::Configuration)].isEmpty());
        bench.camera.restart();
        QCOMPARE(bench.camera.activeConfiguration(), before);
    }

    void storesTheFactoryRecordAndTakesItsSerialNumber_data()
    {
        QTest::addColumn<QString>("model");
        QTest::addColumn<int>("size");
        QTest::addColumn<int>("serialOffset");
        QTest::newRow("blend") << "blend" << 32 << 0;
        QTest::newRow("blend zoom") << "blend-zoom" << 416 << 4;
    }
    void storesTheFactoryRecordAndTakesItsSerialNumber()
    {
        QFETCH(QString, model);
        QFETCH(int, size);
        QFETCH(int, serialOffset);
        Bench bench(model);
        const auto answer = bench.camera.handle(111, {});
        QCOMPARE(answer.command, 211U);
        QCOMPARE(answer.payload.size(), size);
        QCOMPARE(answer.payload.mid(serialOffset, 12), QByteArray("4711\0\0\0\0\0\0\0\0", 12));

        const QByteArray record = with(answer.payload, serialOffset, QByteArray("1800042", 8));
        QCOMPARE(bench.camera.handle(110, record).command, 210U);
        QCOMPARE(bench.camera.handle(111, {}).payload, record);
        QCOMPARE(bench.kept[int(Camera::Record::Factory)], QList<QByteArray>{record});
        QCOMPARE(bench.camera.handle(116, {}).payload.mid(8), QByteArray("1800042", 8));

        for (const QByteArray &wrong : {record.chopped(4), record + QByteArray(4, '\0')})
            QCOMPARE(bench.camera.handle(110, wrong).command, 310U);
        QCOMPARE(bench.camera.handle(111, {}).payload, record);
    }

    void keepsItsSerialNumberWhenTheFactoryRecordHasNone()
    {
        Bench bench;
        QCOMPARE(bench.camera.handle(110, QByteArray(416, '\xFF')).command, 210U);
        QCOMPARE(bench.camera.handle(116, {}).payload.mid(8), QByteArray("4711", 5));
    }

    void holdsTheSerialNumberOfTwelveCharacters()
    {
        const Model &model = *models::ofOptionName("blend-zoom");
        const QByteArray record = defaultFactoryRecord(model, "123456789012345");
        QCOMPARE(record.mid(4, 12), QByteArray("123456789012"));
        QCOMPARE(factorySerial(model, record), QByteArray("123456789012"));
    }

    void refusesWhateverConcernsRecordsOfThe20()
    {
        Bench bench("2.0");
        const QByteArray record = defaultConfiguration(*models::ofOptionName("blend-zoom"));
        for (const quint32 command : {101U, 102U, 108U, 110U, 111U, 122U})
            QCOMPARE(bench.camera.handle(command, record).command, command + 200);
    }

    void sweepsSixteenChannelsSmoothly_data()
    {
        QTest::addColumn<quint32>("command");
        QTest::newRow("requested by the tool") << 123U;
        QTest::newRow("the other code") << 120U;
    }
    void sweepsSixteenChannelsSmoothly()
    {
        QFETCH(quint32, command);
        Bench bench;
        int lowest[17];
        int highest[17];
        std::fill_n(lowest, 17, 65535);
        std::fill_n(highest, 17, -1);
        QByteArray last;
        for (int step = 0; step < 1000; ++step, bench.now += 20) {
            const auto answer = bench.camera.handle(command, {});
            QCOMPARE(answer.command, command + 100);
            QCOMPARE(answer.payload.size(), 32);
            for (int channel = 1; channel <= 16; ++channel) {
                const int value = level(answer.payload, channel);
                QVERIFY(value <= 2000);
                if (!last.isEmpty())
                    QVERIFY(qAbs(value - level(last, channel)) < 50);
                lowest[channel] = qMin(lowest[channel], value);
                highest[channel] = qMax(highest[channel], value);
            }
            last = answer.payload;
        }
        for (int channel = 1; channel <= 16; ++channel) {
            QVERIFY(lowest[channel] < 20);
            QVERIFY(highest[channel] > 1980);
        }
    }

    void streamsGpsBetweenStartAndStop()
    {
        Bench bench;
        QVERIFY(!bench.camera.isStreamingGps());
        QCOMPARE(bench.camera.handle(125, QByteArray("\1\0\0\0", 4)).command, 225U);
        QVERIFY(bench.camera.isStreamingGps());
        QCOMPARE(bench.camera.handle(125, QByteArray(4, '\0')).command, 225U);
        QVERIFY(!bench.camera.isStreamingGps());
        bench.camera.handle(125, "\1");
        bench.camera.restart();
        QVERIFY(!bench.camera.isStreamingGps());
    }

    void sendsSentencesWithAValidChecksumAndNoLineEnd()
    {
        Bench bench;
        QStringList types;
        for (int i = 0; i < 300; ++i, bench.now += 1000) {
            const auto message = bench.camera.gpsMessage();
            QCOMPARE(message.command, 226U);
            QVERIFY(message.payload.endsWith('\0'));
            const QByteArray sentence = message.payload.chopped(1);
            const QRegularExpression form("^\\$(GPGGA|GPRMC),([0-9A-Z.,-]*)\\*([0-9A-F]{2})$");
            const auto match = form.match(QString::fromLatin1(sentence));
            QVERIFY2(match.hasMatch(), sentence.constData());
            quint8 sum = 0;
            for (const char c : sentence.mid(1, sentence.size() - 4))
                sum ^= static_cast<quint8>(c);
            QCOMPARE(int(sum), match.captured(3).toInt(nullptr, 16));
            const int commas = sentence.count(',');
            QCOMPARE(commas, match.captured(1) == "GPGGA" ? 14 : 12);
            types << match.captured(1);
        }
        QCOMPARE(types.count("GPGGA"), 150);
        QCOMPARE(types.count("GPRMC"), 150);
    }

    void tellsTheTimeInItsSentences()
    {
        Bench bench;
        bench.now = QDateTime({2019, 8, 5}, {13, 7, 9, 120}, Qt::UTC).toMSecsSinceEpoch();
        QVERIFY(bench.camera.gpsMessage().payload.startsWith("$GPGGA,130709.12,"));
        const QByteArray rmc = bench.camera.gpsMessage().payload;
        QVERIFY(rmc.startsWith("$GPRMC,130709.12,A,"));
        QVERIFY(rmc.contains(",050819,"));
    }

    void letsItsFocusDriftAsASignedByte()
    {
        Bench bench;
        QSet<int> values;
        for (int i = 0; i < 60; ++i, bench.now += 1000) {
            const auto answer = bench.camera.handle(128, QByteArray(20, '\x0A'));
            QCOMPARE(answer.command, 228U);
            QCOMPARE(answer.payload.size(), 1);
            values << static_cast<qint8>(answer.payload.at(0));
        }
        const auto [lowest, highest] = std::minmax_element(values.cbegin(), values.cend());
        QCOMPARE(*lowest, -31);
        QCOMPARE(*highest, 31);
    }

    void decodesDisplacements()
    {
        Bench bench;
        QByteArray payload;
        for (const qint16 value : {483, -2, 945, 756, 378, -32768, 32767})
            payload += wire::littleEndian(value);
        for (const quint32 command : {130U, 131U}) {
            const auto answer = bench.camera.handle(command, padded(payload));
            QCOMPARE(answer.command, command + 100);
            QCOMPARE(answer.note, QString("A 483, B -2, C 945, D 756, E 378, F -32768, G 32767"));
            QCOMPARE(bench.camera.handle(command, payload.left(12)).command, command + 200);
        }
    }

    void acknowledgesTheOtherCommands_data()
    {
        QTest::addColumn<quint32>("command");
        QTest::addColumn<quint32>("answer");
        for (const quint32 command : {117U, 124U, 133U, 155U})
            QTest::addRow("%u", command) << command << command + 100;
        QTest::newRow("all bits set") << 0xFFFFFFFFU << 99U;
    }
    void acknowledgesTheOtherCommands()
    {
        QFETCH(quint32, command);
        QFETCH(quint32, answer);
        Bench bench;
        const auto given = bench.camera.handle(command, QByteArray(4, '\1'));
        QCOMPARE(given.command, answer);
        QCOMPARE(given.payload, QByteArray());
    }

    void answersWhatItDoesNotKnowWithUnknown_data()
    {
        QTest::addColumn<quint32>("command");
        for (const quint32 command : {0U, 2U, 100U, 103U, 127U, 202U, 0x80000065U, 0xFFFFFFFEU})
            QTest::addRow("%u", command) << command;
    }
    void answersWhatItDoesNotKnowWithUnknown()
    {
        QFETCH(quint32, command);
        Bench bench;
        const auto answer = bench.camera.handle(command, QByteArray(8, '\1'));
        QCOMPARE(answer.command, 0U);
        QCOMPARE(answer.payload, QByteArray());
    }

private:
    static void bothModels()
    {
        QTest::addColumn<QString>("model");
        QTest::newRow("blend") << "blend";
        QTest::newRow("blend zoom") << "blend-zoom";
    }
};

QTEST_GUILESS_MAIN(tst_Camera)
#include "tst_camera.moc"
