#include "link/FrameParser.h"

#include "parsertrace.h"
#include "support/referenceframes.h"

#include <QtTest>

#include <algorithm>

using reference::frame;

static const QString crcLine = "<<< ERROR crc service: data invalid";
static const QString oddLengthLine = "<<< Error CRCService: data has to be multiple of 4 bytes!";
static const QString invalidLine = "kovoPacketManager::slotPacketStateMachine() CRC invalid";
static const QString resetLine = "ERROR: state machine reset";
static const QString overrunLine = "Buffer overun detected";
static const QString tooLongLine = "--Reset parser";

class tst_FrameParser : public QObject
{
    Q_OBJECT

private slots:
    void wholeFrameAndSingleBytesGiveTheSameMessage();
    void emptyChunkDoesNothing();
    void everySplitOfAFrameGivesTheSameMessage();
    void severalFramesInOneChunkAreAllDelivered();
    void bytesBetweenFramesAreDropped();
    void repeatedFirstMagicByteRestartsTheMagic();
    void mismatchInsideTheMagicIsNotReexamined();
    void payloadIsDeliveredPadded();
    void trailerIsNotChecked();
    void lengthFieldOf1024IsAccepted();
    void lengthFieldOf1025ResetsTheParser();
    void wrongCrcGivesCommand1WithAnEmptyPayload();
    void wrongCrcKeepsThePartsCollectedSoFar();
    void partsAreJoinedUnderTheCommandOfTheLast();
    void partNumberZeroOfZeroCompletesAMessage();
    void reassemblyOf102400BytesIsDiscardedOneByteLater();
    void reassemblyJustBelowTheLimitIsDelivered();
    void lengthFieldBelow4RunsIntoTheBufferLimit_data();
    void lengthFieldBelow4RunsIntoTheBufferLimit();
    void lengthFieldOf4NeverFits();
    void oddLengthFieldIsReportedAsWrongCrc();
    void lengthField8WithFittingCrcIsAPartWithoutPayload();
    void lengthField12WithFittingCrcTakesTheCrcAsItsCommand();
    void nestedFeedFinishesTheOuterBytesFirst();
    void deeplyNestedFeedsKeepTheOrder();
    void nestedFeedAfterAWrongCrcContinuesTheMessage();
    void messageOfAHandlerIsItsOwnWhileNestedOnesArrive();
    void partTakenByANestedFeedIsKept();
    void severalNestedFeedsKeepTheOrder();
    void keptMessagesAreNotOverwritten();
    void parsersAreIndependent();
};

static const QByteArray configurationRequest =
    QByteArray::fromHex("4B4F564F000000100001000100000066CD6E078B00");

void tst_FrameParser::wholeFrameAndSingleBytesGiveTheSameMessage()
{
    const QByteArray bytes = frame(202, "0123456789abcdef");
    Trace whole;
    whole.feed(configurationRequest + bytes);
    const QStringList messages{told(102, ""), told(202, "0123456789abcdef")};
    QCOMPARE(whole.events, messages);
    Trace bytewise;
    bytewise.feedBytewise(configurationRequest + bytes);
    QCOMPARE(bytewise.events, messages);
}

void tst_FrameParser::emptyChunkDoesNothing()
{
    Trace trace;
    trace.feed({});
    trace.feed(configurationRequest.left(9));
    trace.feed(QByteArray());
    trace.feed(QByteArray(""));
    trace.feed(configurationRequest.mid(9));
    QCOMPARE(trace.events, QStringList(told(102, "")));
}

void tst_FrameParser::everySplitOfAFrameGivesTheSameMessage()
{
    const QByteArray payload = QByteArray::fromHex("4b4f564f00ff4b4f");
    const QByteArray bytes = frame(223, payload);
    for (int first = 0; first <= bytes.size(); ++first)
        for (int second = first; second <= bytes.size(); ++second) {
            Trace trace;
            trace.feed(bytes.left(first));
            trace.feed(bytes.mid(first, second - first));
            trace.feed(bytes.mid(second));
            QCOMPARE(trace.events, QStringList(told(223, payload)));
        }
}

void tst_FrameParser::severalFramesInOneChunkAreAllDelivered()
{
    Trace trace;
    trace.feed(frame(201, "a") + frame(0, "bcde") + frame(0xFFFFFFFFU, "") + frame(99, "f"));
    QCOMPARE(trace.events,
             (QStringList{told(201, QByteArray("a\0\0\0", 4)), told(0, "bcde"),
                          told(0xFFFFFFFFU, ""), told(99, QByteArray("f\0\0\0", 4))}));
}

void tst_FrameParser::bytesBetweenFramesAreDropped()
{
    Trace trace;
    trace.feed("noise OVO" + frame(201, "") + QByteArray(3, '\0') + "xy" + frame(202, ""));
    QCOMPARE(trace.events, (QStringList{told(201, ""), told(202, "")}));
}

void tst_FrameParser::repeatedFirstMagicByteRestartsTheMagic()
{
    Trace trace;
    trace.feed("K" + frame(201, ""));
    trace.feed("KKKK" + frame(202, ""));
    QCOMPARE(trace.events, (QStringList{told(201, ""), told(202, "")}));
}

void tst_FrameParser::mismatchInsideTheMagicIsNotReexamined()
{
    Trace trace;
    trace.feed("KO" + frame(201, ""));
    trace.feed("KOV" + frame(202, ""));
    QCOMPARE(trace.events, QStringList());
    trace.feed(frame(203, ""));
    QCOMPARE(trace.events, QStringList(told(203, "")));
}

void tst_FrameParser::payloadIsDeliveredPadded()
{
    Trace trace;
    trace.feed(frame(226, "GPRMC"));
    QCOMPARE(trace.events, QStringList(told(226, QByteArray("GPRMC\0\0\0", 8))));
}

void tst_FrameParser::trailerIsNotChecked()
{
    for (const char trailer : {'\x01', 'K', '\xFF'}) {
        QByteArray bytes = frame(201, "abcd");
        bytes[bytes.size() - 1] = trailer;
        Trace trace;
        trace.feed(bytes + frame(202, ""));
        QCOMPARE(trace.events, (QStringList{told(201, "abcd"), told(202, "")}));
    }
}

void tst_FrameParser::lengthFieldOf1024IsAccepted()
{
    const QByteArray payload(1008, 'p');
    const QByteArray bytes = frame(202, payload);
    QCOMPARE(bytes.mid(4, 4), QByteArray::fromHex("00000400"));
    Trace trace;
    trace.feed(bytes);
    trace.feedBytewise(bytes);
    QCOMPARE(trace.events, (QStringList{told(202, payload), told(202, payload)}));
}

void tst_FrameParser::lengthFieldOf1025ResetsTheParser()
{
    for (const char *length : {"00000401", "00000500", "00010000", "4B4F564F", "ffffffff"}) {
        Trace trace;
        trace.feed("KOVO" + QByteArray::fromHex(length) + frame(201, ""));
        trace.feedBytewise("KOVO" + QByteArray::fromHex(length) + frame(202, ""));
        QCOMPARE(trace.events,
                 (QStringList{tooLongLine, told(201, ""), tooLongLine, told(202, "")}));
    }
}

void tst_FrameParser::wrongCrcGivesCommand1WithAnEmptyPayload()
{
    const QByteArray good = frame(202, "abcd");
    // Every bit between magic and trailer, except those of the length field.
    for (int bit = 8 * 8; bit < 8 * (good.size() - 1); ++bit) {
        QByteArray bad = good;
        bad[bit / 8] = static_cast<char>(bad.at(bit / 8) ^ 1 << bit % 8);
        Trace trace;
        trace.feed(bad + good);
        QCOMPARE(trace.events, (QStringList{crcLine, invalidLine, told(1, ""), told(202, "abcd")}));
    }
}

void tst_FrameParser::wrongCrcKeepsThePartsCollectedSoFar()
{
    QByteArray bad = frame(202, "lost", 2, 3);
    bad[18] = 'x';
    Trace trace;
    trace.feed(frame(202, "one ", 1, 3) + bad + frame(202, "two ", 2, 3) +
               frame(202, "done", 3, 3));
    QCOMPARE(trace.events,
             (QStringList{crcLine, invalidLine, told(1, "one "), told(202, "one two done")}));
}

void tst_FrameParser::partsAreJoinedUnderTheCommandOfTheLast()
{
    Trace trace;
    trace.feed(frame(211, "abcde", 1, 2));
    QCOMPARE(trace.events, QStringList());
    trace.feed(frame(202, "fgh", 2, 2) + frame(203, "ijkl"));
    QCOMPARE(trace.events,
             (QStringList{told(202, QByteArray("abcde\0\0\0fgh\0", 12)), told(203, "ijkl")}));
}

void tst_FrameParser::partNumberZeroOfZeroCompletesAMessage()
{
    Trace trace;
    trace.feed(frame(202, "abcd", 0, 0) + frame(203, "efgh", 0xFFFF, 0xFFFF) +
               frame(204, "head", 0x0102, 0x0201) + frame(205, "tail", 0x0102, 0x0102));
    QCOMPARE(trace.events,
             (QStringList{told(202, "abcd"), told(203, "efgh"), told(205, "headtail")}));
}

void tst_FrameParser::reassemblyOf102400BytesIsDiscardedOneByteLater()
{
    // 101 parts of 1,000 bytes and one of 384: together with a length field of 1016 exactly
    // the limit.
    const auto fill = [](Trace &trace) {
        for (int i = 0; i < 101; ++i)
            trace.feed(frame(202, QByteArray(1000, 'c'), 1, 2));
        trace.feed(frame(202, QByteArray(384, 'd'), 1, 2));
    };
    const QByteArray last = frame(202, QByteArray(1000, 'e'), 2, 2);
    for (const bool bytewise : {false, true}) {
        Trace trace;
        fill(trace);
        bytewise ? trace.feedBytewise(last) : trace.feed(last);
        QCOMPARE(trace.events, QStringList());
        trace.feed("K"); // consumed unexamined
        QCOMPARE(trace.events, QStringList(resetLine));
        trace.feed(frame(203, "new "));
        QCOMPARE(trace.events, (QStringList{resetLine, told(203, "new ")}));
    }
}

void tst_FrameParser::reassemblyJustBelowTheLimitIsDelivered()
{
    Trace trace;
    QByteArray stream;
    QByteArray payload;
    for (int i = 0; i < 101; ++i) {
        payload += QByteArray(1000, static_cast<char>('A' + i % 26));
        stream += frame(202, QByteArray(1000, static_cast<char>('A' + i % 26)), 1, 2);
    }
    payload += QByteArray(380, 'x') + QByteArray(1000, 'y');
    stream += frame(202, QByteArray(380, 'x'), 1, 2) + frame(202, QByteArray(1000, 'y'), 2, 2);
    trace.feed(stream);
    QCOMPARE(trace.events, QStringList(told(202, payload)));
}

void tst_FrameParser::lengthFieldBelow4RunsIntoTheBufferLimit_data()
{
    QTest::addColumn<int>("length");
    QTest::addColumn<int>("chunk");
    for (int length = 0; length < 4; ++length)
        for (const int chunk : {1, 4095, 300000})
            QTest::addRow("length %d, chunks of %d", length, chunk) << length << chunk;
}

void tst_FrameParser::lengthFieldBelow4RunsIntoTheBufferLimit()
{
    QFETCH(int, length);
    QFETCH(int, chunk);
    QByteArray stream = "KOVO";
    reference::appendBigEndian(stream, static_cast<uint32_t>(length), 4);
    // Bytes for the indices 4 to 262,142; frames among them are body bytes like any other.
    QByteArray body;
    while (body.size() < 262139)
        body += configurationRequest;
    stream += body.left(262139);

    Trace trace;
    for (int i = 0; i < stream.size(); i += chunk)
        trace.feed(stream.mid(i, chunk));
    QCOMPARE(trace.events, QStringList());
    trace.feed("K");
    QCOMPARE(trace.events, QStringList(overrunLine));
    trace.feed("K");
    QCOMPARE(trace.events, (QStringList{overrunLine, resetLine}));
    trace.feed(frame(201, "abcd"));
    QCOMPARE(trace.events, (QStringList{overrunLine, resetLine, told(201, "abcd")}));
}

void tst_FrameParser::lengthFieldOf4NeverFits()
{
    Trace trace;
    trace.feed("KOVO" + QByteArray::fromHex("0000000400") + frame(201, ""));
    QCOMPARE(trace.events, (QStringList{crcLine, invalidLine, told(1, ""), told(201, "")}));
}

void tst_FrameParser::oddLengthFieldIsReportedAsWrongCrc()
{
    for (const int length : {5, 6, 7, 9, 10, 11, 13, 14, 15, 17, 1023}) {
        QByteArray bytes = "KOVO";
        reference::appendBigEndian(bytes, static_cast<uint32_t>(length), 4);
        bytes += QByteArray(length - 3, 'z');
        Trace trace;
        trace.feed(bytes + frame(201, ""));
        QCOMPARE(trace.events,
                 (QStringList{oddLengthLine, invalidLine, told(1, ""), told(201, "")}));
    }
}

void tst_FrameParser::lengthField8WithFittingCrcIsAPartWithoutPayload()
{
    Trace trace;
    // The CRC stands where the part number and count are read, and the two differ.
    trace.feed(frame(202, "head", 1, 2) + reference::enclose(QByteArray::fromHex("00000008")) +
               frame(202, "tail", 2, 2));
    QCOMPARE(trace.events, QStringList(told(202, "headtail")));
}

void tst_FrameParser::lengthField12WithFittingCrcTakesTheCrcAsItsCommand()
{
    const QByteArray bytes = reference::enclose(QByteArray::fromHex("0000000c00010001"));
    QByteArray crc = bytes.mid(12, 4);
    Trace trace;
    trace.feed(frame(201, "wxyz") + bytes + frame(202, "head", 1, 2) + bytes);
    const auto command = crc.toHex().toUInt(nullptr, 16);
    QCOMPARE(trace.events,
             (QStringList{told(201, "wxyz"), told(command, ""), told(command, "head")}));
}

void tst_FrameParser::nestedFeedFinishesTheOuterBytesFirst()
{
    Trace trace;
    const QByteArray third = frame(203, "");
    trace.handler = [&](ComioInterfaceCommand_TypeDef command, const QVector<uint8_t> &) {
        trace.events.append(QStringLiteral("begin %1").arg(command));
        if (command == 201)
            trace.feed(third.mid(7) + frame(204, ""));
        trace.events.append(QStringLiteral("end %1").arg(command));
    };
    trace.feed(frame(201, "") + frame(202, "") + third.left(7));
    QCOMPARE(trace.events, (QStringList{"begin 201", "begin 202", "end 202", "begin 203", "end 203",
                                        "begin 204", "end 204", "end 201"}));
}

void tst_FrameParser::deeplyNestedFeedsKeepTheOrder()
{
    // Every handler is interrupted by the next chunk; chunks end inside frames.
    QByteArray stream;
    QStringList messages;
    for (int i = 0; i < 60; ++i) {
        const QByteArray payload(4 * (i % 5), static_cast<char>('a' + i % 26));
        stream += frame(200U + static_cast<uint32_t>(i), payload);
        messages += told(200U + static_cast<uint32_t>(i), payload);
    }
    Trace trace;
    int position = 0;
    const auto feedNext = [&] {
        const int begin = position;
        position = std::min(position + 50, stream.size());
        trace.feed(stream.mid(begin, position - begin));
    };
    trace.handler = [&](ComioInterfaceCommand_TypeDef command, const QVector<uint8_t> &payload) {
        trace.events.append(told(command, toBytes(payload)));
        feedNext();
    };
    feedNext();
    while (position < stream.size())
        feedNext();
    QCOMPARE(trace.events, messages);
}

void tst_FrameParser::nestedFeedAfterAWrongCrcContinuesTheMessage()
{
    QByteArray bad = frame(202, "lost", 2, 2);
    bad[18] = 'x';
    Trace trace;
    trace.handler = [&](ComioInterfaceCommand_TypeDef command, const QVector<uint8_t> &payload) {
        if (command == COMIO_CMD_CRC_ERROR)
            trace.feed(frame(202, "tail", 2, 2));
        trace.events.append(told(command, toBytes(payload)));
    };
    trace.feed(frame(202, "head", 1, 2) + bad);
    QCOMPARE(trace.events,
             (QStringList{crcLine, invalidLine, told(202, "headtail"), told(1, "head")}));
}

void tst_FrameParser::messageOfAHandlerIsItsOwnWhileNestedOnesArrive()
{
    Trace trace;
    trace.handler = [&](ComioInterfaceCommand_TypeDef command, const QVector<uint8_t> &payload) {
        if (command == 201)
            trace.feed(frame(202, "other bytes!", 1, 2) + frame(203, "more", 2, 2));
        trace.events.append(told(command, toBytes(payload)));
    };
    trace.feed(frame(201, "own bytes..."));
    QCOMPARE(trace.events, (QStringList{told(203, "other bytes!more"), told(201, "own bytes...")}));
}

void tst_FrameParser::partTakenByANestedFeedIsKept()
{
    Trace trace;
    trace.handler = [&](ComioInterfaceCommand_TypeDef command, const QVector<uint8_t> &payload) {
        trace.events.append(told(command, toBytes(payload)));
        if (command == 201)
            trace.feed(frame(202, "head", 1, 2));
    };
    trace.feed(frame(201, "outer..."));
    trace.feed(frame(202, "tail", 2, 2));
    QCOMPARE(trace.events, (QStringList{told(201, "outer..."), told(202, "headtail")}));
}

void tst_FrameParser::severalNestedFeedsKeepTheOrder()
{
    const QByteArray third = frame(203, "three...");
    Trace trace;
    trace.handler = [&](ComioInterfaceCommand_TypeDef command, const QVector<uint8_t> &payload) {
        trace.events.append(told(command, toBytes(payload)));
        if (command == 201)
            for (int i = 14; i < third.size(); i += 5)
                trace.feed(third.mid(i, 5));
    };
    trace.feed(frame(201, "one.") + frame(202, "two.") + third.left(14));
    QCOMPARE(trace.events,
             (QStringList{told(201, "one."), told(202, "two."), told(203, "three...")}));
}

void tst_FrameParser::keptMessagesAreNotOverwritten()
{
    FrameParser parser;
    QVector<QVector<uint8_t>> kept;
    const auto keep = [&](ComioInterfaceCommand_TypeDef, const QVector<uint8_t> &payload) {
        kept.append(payload);
    };
    parser.feed(frame(201, "first...") + frame(202, "second..") + frame(203, "part", 1, 2), keep);
    parser.feed(frame(203, "end.", 2, 2), keep);
    QCOMPARE(kept.size(), 3);
    QCOMPARE(toBytes(kept.at(0)), QByteArray("first..."));
    QCOMPARE(toBytes(kept.at(1)), QByteArray("second.."));
    QCOMPARE(toBytes(kept.at(2)), QByteArray("partend."));
}

void tst_FrameParser::parsersAreIndependent()
{
    Trace one;
    FrameParser other;
    one.feed(configurationRequest.left(10));
    other.feed(frame(202, "abcd"), one.handler);
    one.feed(configurationRequest.mid(10));
    QCOMPARE(one.events, (QStringList{told(202, "abcd"), told(102, "")}));
}

QTEST_APPLESS_MAIN(tst_FrameParser)
#include "tst_frameparser.moc"
