// The frame parser: whatever the bytes and whatever their chunks, it tells the same messages and
// diagnostics as a plain model that takes one byte at a time.
//
// Input: a byte with the number of cuts in its lower five bits (the stream may be long if the
// others are all set); the cuts, one byte each, which give the sizes of the chunks; then steps that
// write the stream, see Stream::step().

#include "Input.h"
#include "diagnostics/diagnostics.h"
#include "judge.h"
#include "link/FrameParser.h"
#include "link/kovoPacketManager.h"
#include "support/referenceframes.h"

#include <QVector>

namespace {

constexpr int usualLimit = 8000;
/// Above the parser's own buffer, which only a frame without an end fills.
constexpr int longLimit = 300000;
constexpr int longestPayload = 1024 - 16;
constexpr int deepestNesting = 50;

/// Builds the stream: random bytes alone would hardly ever make a frame with a fitting CRC.
class Stream
{
public:
    Stream(Input &input, int limit) : m_limit(limit)
    {
        while (!input.atEnd() && m_bytes.size() < m_limit)
            append(step(input));
    }
    const QByteArray &bytes() const { return m_bytes; }

private:
    QByteArray step(Input &input)
    {
        switch (input.number<quint8>() % 8) {
        case 0: // as they are
            return input.bytes(input.number<quint8>());
        case 1:
            return m_last = frame(input);
        case 2: { // a frame with a damaged byte
            QByteArray damaged = frame(input);
            const int at = input.number<quint16>() % damaged.size();
            damaged[at] = static_cast<char>(damaged[at] ^ (1 << input.number<quint8>() % 8));
            return m_last = damaged;
        }
        case 3: { // fitting length and CRC around too little, or around no whole number of words
            QByteArray region;
            const QByteArray content = input.bytes(input.number<quint8>() % 16);
            reference::appendBigEndian(region, static_cast<uint32_t>(content.size()) + 8, 4);
            region.append(content);
            const QByteArray whole =
                reference::enclose(region + QByteArray(3 - (region.size() + 3) % 4, '\0'));
            return m_last = whole;
        }
        case 4: { // the last frame again and again, as the parts of a long message
            const int times = input.number<quint8>();
            return m_last.repeated(std::min(times, m_limit / std::max(1, m_last.size())));
        }
        case 5: { // one byte over and over
            const char filler = input.number<char>();
            return QByteArray(input.number<quint16>(), filler);
        }
        case 6: // any length field
            return "KOVO" + input.bytes(4);
        default: // the start of the last frame
            return m_last.left(input.number<quint16>());
        }
    }

    QByteArray frame(Input &input)
    {
        const auto command = input.number<quint16>();
        const auto part = input.number<quint8>();
        const auto count = input.number<quint8>();
        QByteArray payload = input.bytes(input.number<quint8>());
        const int size = input.number<quint16>() % (longestPayload + 1);
        payload.append(QByteArray(std::max(0, size - payload.size()), command & 0xFF));

        QByteArray built;
        kovoPacketManager(nullptr).prepareMessage(
            payload.constData(), static_cast<std::size_t>(payload.size()), part, count,
            static_cast<ComioInterfaceCommand_TypeDef>(command), built);
        judgeEqual(reference::frame(command, payload, part, count).toHex(), built.toHex(),
                   "prepareMessage() gives");
        return built;
    }

    void append(const QByteArray &bytes) { m_bytes.append(bytes.left(m_limit - m_bytes.size())); }

    int m_limit;
    QByteArray m_bytes;
    QByteArray m_last;
};

/// Messages and diagnostics in one sequence.
class Trace
{
public:
    void line(const QString &text) { m_told += text.toLatin1(); }
    void message(uint32_t command, const char *payload, int size)
    {
        m_told += "message " + QByteArray::number(command) + ' ' +
                  QByteArray::fromRawData(payload, size).toHex() + '\n';
    }
    const QByteArray &told() const { return m_told; }

private:
    QByteArray m_told;
};

QByteArray expectedOf(const QByteArray &stream)
{
    Trace trace;
    reference::Parser model;
    model.line = [&](const QString &text) { trace.line(text + '\n'); };
    model.message = [&](uint32_t command, const QByteArray &payload) {
        trace.message(command, payload.constData(), payload.size());
    };
    for (const char byte : stream)
        model.take(static_cast<uint8_t>(byte));
    return trace.told();
}

/// A parser of its own for one way of feeding the stream.
class ParserUnderTest
{
public:
    ParserUnderTest()
    {
        diagnostics::setSink([this](diagnostics::Stream stream, const QString &text) {
            judge(stream == diagnostics::Stream::Out, "the parser writes to standard output");
            m_trace.line(text);
        });
    }
    ~ParserUnderTest() { diagnostics::setSink({}); }
    ParserUnderTest(const ParserUnderTest &) = delete;
    ParserUnderTest &operator=(const ParserUnderTest &) = delete;

    const QByteArray &told() const { return m_trace.told(); }

    void feed(const QByteArray &chunk) { m_parser.feed(chunk, m_handler); }

    void feedBytewise(const QByteArray &stream)
    {
        QByteArray chunk(1, '\0');
        for (const char byte : stream) {
            chunk[0] = byte;
            feed(chunk);
        }
    }

    /// Feeds up to three of the chunks to come from within each handler, as many as `cuts` say, or
    /// takes what is waiting there.
    void feedNested(const QVector<QByteArray> &chunks, const QByteArray &cuts)
    {
        int next = 0;
        int depth = 0;
        int messages = 0;
        FrameParser::Handler handler = [&](ComioInterfaceCommand_TypeDef command,
                                           const QVector<uint8_t> &payload) {
            note(command, payload);
            const int cut = cuts.isEmpty() ? 1 : cuts[messages++ % cuts.size()];
            if (depth == deepestNesting)
                return;
            ++depth;
            if (cut & 4)
                m_parser.takeWaiting();
            for (int i = 0; i < (cut & 3) && next < chunks.size(); ++i)
                m_parser.feed(chunks[next++], handler);
            --depth;
        };
        while (next < chunks.size())
            m_parser.feed(chunks[next++], handler);
    }

private:
    void note(ComioInterfaceCommand_TypeDef command, const QVector<uint8_t> &payload)
    {
        m_trace.message(command, reinterpret_cast<const char *>(payload.constData()),
                        payload.size());
    }

    Trace m_trace;
    FrameParser m_parser;
    FrameParser::Handler m_handler = [this](ComioInterfaceCommand_TypeDef command,
                                            const QVector<uint8_t> &payload) {
        note(command, payload);
    };
};

/// Chunks whose sizes go round in `cuts`: 0 to 127 bytes, or more in steps of 64.
QVector<QByteArray> chunksOf(const QByteArray &stream, const QByteArray &cuts)
{
    QVector<QByteArray> chunks;
    int emptyOnes = 0;
    for (int at = 0, i = 0; at < stream.size(); ++i) {
        const int cut = cuts.isEmpty() ? 16 : static_cast<uchar>(cuts[i % cuts.size()]);
        int size = cut < 128 ? cut : (cut - 126) * 64;
        if (size == 0 && ++emptyOnes > 100)
            size = 1;
        chunks.append(stream.mid(at, size));
        at += size;
    }
    return chunks;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *bytes, std::size_t size)
{
    Input input(bytes, size);
    const auto head = input.number<quint8>();
    const QByteArray cuts = input.bytes(head % 32);
    const QByteArray stream = Stream(input, head / 32 == 7 ? longLimit : usualLimit).bytes();
    const QByteArray expected = expectedOf(stream);
    const QVector<QByteArray> chunks = chunksOf(stream, cuts);

    ParserUnderTest whole;
    whole.feed(stream);
    judgeEqual(expected, whole.told(), "in one chunk");

    ParserUnderTest single;
    single.feedBytewise(stream);
    judgeEqual(expected, single.told(), "byte by byte");

    ParserUnderTest split;
    for (const QByteArray &chunk : chunks)
        split.feed(chunk);
    judgeEqual(expected, split.told(), "in the chunks of the input");

    ParserUnderTest nested;
    nested.feedNested(chunks, cuts);
    judgeEqual(expected, nested.told(), "fed from within its handlers");
    return 0;
}
