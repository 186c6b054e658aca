// The parser against a plain model of it, over streams as good and bad lines bring them.

#include "parsertrace.h"
#include "support/referenceframes.h"

#include <QtTest>

#include <random>

using reference::frame;

static QStringList expected(const QByteArray &stream)
{
    QStringList events;
    reference::Parser model;
    model.line = [&](const QString &line) { events.append(line); };
    model.message = [&](uint32_t command, const QByteArray &payload) {
        events.append(told(command, payload));
    };
    for (const char byte : stream)
        model.take(static_cast<uint8_t>(byte));
    return events;
}

// Pieces of a stream as a good line, a bad line and a hostile one would bring them.
class StreamMaker
{
public:
    explicit StreamMaker(unsigned int seed) : m_random(seed) {}

    QByteArray stream(int pieces)
    {
        QByteArray bytes;
        for (int i = 0; i < pieces; ++i)
            bytes += piece();
        return bytes;
    }

    uint32_t below(uint32_t limit) { return static_cast<uint32_t>(m_random() % limit); }

private:
    QByteArray bytes(uint32_t size, const QByteArray &alphabet = {})
    {
        QByteArray result(static_cast<int>(size), '\0');
        for (char &byte : result)
            byte =
                alphabet.isEmpty()
                    ? static_cast<char>(below(256))
                    : alphabet.at(static_cast<int>(below(static_cast<uint32_t>(alphabet.size()))));
        return result;
    }

    QByteArray valid()
    {
        const uint32_t part = below(4) == 0 ? below(3) : 1;
        return frame(below(300), bytes(below(10) == 0 ? below(1009) : below(60)), part, 1);
    }

    QByteArray shortLength()
    {
        QByteArray region;
        const uint32_t length = below(2) == 0 ? 12 : 8;
        reference::appendBigEndian(region, length, 4);
        if (length == 12)
            reference::appendBigEndian(region, below(2) * 0x10000 + 1, 4);
        return reference::enclose(region);
    }

    QByteArray oddLength()
    {
        QByteArray result = "KOVO";
        const uint32_t length = 4 + below(16);
        reference::appendBigEndian(result, length, 4);
        return result + bytes(length - 3);
    }

    QByteArray damaged()
    {
        QByteArray result = valid();
        const auto bit = 64 + below(static_cast<uint32_t>(result.size() - 8) * 8);
        result[bit / 8] = static_cast<char>(result.at(static_cast<int>(bit / 8)) ^ 1 << bit % 8);
        return result;
    }

    QByteArray endlessLength()
    {
        QByteArray result = "KOVO";
        reference::appendBigEndian(result, below(4), 4);
        return result + bytes(262100 + below(80));
    }

    QByteArray overflowingParts()
    {
        QByteArray result;
        for (int i = 0; i < 104; ++i)
            result += frame(202, QByteArray(1008, static_cast<char>(i)), 1, 2);
        return result;
    }

    QByteArray piece()
    {
        const uint32_t kind = below(1000);
        if (kind < 2)
            return endlessLength();
        if (kind < 4)
            return overflowingParts();
        if (kind < 450)
            return valid();
        if (kind < 550)
            return damaged();
        if (kind < 650)
            return frame(202, bytes(below(40)), 1, 2) + frame(202, bytes(below(40)), 2, 2);
        if (kind < 700)
            return "KOVO" + bytes(4);
        if (kind < 760)
            return shortLength();
        if (kind < 820)
            return oddLength();
        if (kind < 880)
            return bytes(below(12), "KOV");
        if (kind < 920)
            return valid().left(static_cast<int>(below(40)));
        return bytes(below(100));
    }

    std::mt19937 m_random;
};

class tst_FrameParserStreams : public QObject
{
    Q_OBJECT

private slots:
    void randomStreamsAtRandomSplitsEqualThePlainModel_data();
    void randomStreamsAtRandomSplitsEqualThePlainModel();
};

void tst_FrameParserStreams::randomStreamsAtRandomSplitsEqualThePlainModel_data()
{
    QTest::addColumn<unsigned int>("seed");
    for (unsigned int seed = 1; seed <= 25; ++seed)
        QTest::addRow("seed %u", seed) << seed;
}

void tst_FrameParserStreams::randomStreamsAtRandomSplitsEqualThePlainModel()
{
    QFETCH(unsigned int, seed);
    StreamMaker maker(seed);
    const QByteArray stream = maker.stream(400);
    const QStringList events = expected(stream);
    QVERIFY(events.size() > 100);

    Trace whole;
    whole.feed(stream);
    QCOMPARE(whole.events, events);

    Trace bytewise;
    bytewise.feedBytewise(stream);
    QCOMPARE(bytewise.events, events);

    for (const uint32_t longest : {3U, 30U, 300U, 5000U}) {
        Trace split;
        for (int i = 0; i < stream.size();) {
            const int size = static_cast<int>(1 + maker.below(longest));
            split.feed(stream.mid(i, size));
            i += size;
        }
        QCOMPARE(split.events, events);
    }
}

QTEST_APPLESS_MAIN(tst_FrameParserStreams)
#include "tst_frameparser_streams.moc"
