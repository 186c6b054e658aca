// What waits in the parser while a handler runs: it can be taken early, or dropped.

#include "parsertrace.h"
#include "support/referenceframes.h"

using reference::frame;

class tst_FrameParserWaiting : public QObject
{
    Q_OBJECT

private slots:
    void nothingWaitsBetweenFeeds();
    void waitingBytesAreTakenInOrder();
    void takingFromEachHandlerKeepsTheOrder();
    void droppedBytesAreAsIfNeverFed();
    void bytesOfAllUnfinishedFeedsAreDropped();
};

void tst_FrameParserWaiting::nothingWaitsBetweenFeeds()
{
    Trace trace;
    QVERIFY(!trace.parser.hasWaiting());
    trace.feed(frame(226, "a").left(20));
    QVERIFY(!trace.parser.hasWaiting());
    trace.parser.takeWaiting();
    trace.parser.dropWaiting();
    trace.feed(frame(226, "a").mid(20));
    QCOMPARE(trace.events, QStringList{"message 226 [61000000]"});
}

void tst_FrameParserWaiting::waitingBytesAreTakenInOrder()
{
    Trace trace;
    QVector<bool> waiting;
    trace.handler = [&](ComioInterfaceCommand_TypeDef command, const QVector<uint8_t> &) {
        waiting << trace.parser.hasWaiting();
        trace.events << QString::number(command);
        if (command == 201) {
            trace.parser.takeWaiting();
            trace.events << "taken";
        }
    };
    trace.feed(frame(201, {}) + frame(202, {}) + frame(203, {}) + frame(204, {}).left(9));
    trace.feed(frame(204, {}).mid(9));
    QCOMPARE(trace.events, (QStringList{"201", "202", "203", "taken", "204"}));
    QCOMPARE(waiting, (QVector<bool>{true, true, true, false}));
}

void tst_FrameParserWaiting::takingFromEachHandlerKeepsTheOrder()
{
    Trace trace;
    trace.handler = [&](ComioInterfaceCommand_TypeDef command, const QVector<uint8_t> &) {
        trace.events << QString::number(command);
        trace.parser.takeWaiting();
        trace.events << QString::number(command) + " ends";
    };
    trace.feed(frame(201, {}) + frame(202, {}) + frame(203, {}));
    QCOMPARE(trace.events, (QStringList{"201", "202", "203", "203 ends", "202 ends", "201 ends"}));
}

void tst_FrameParserWaiting::droppedBytesAreAsIfNeverFed()
{
    Trace trace;
    trace.handler = [&](ComioInterfaceCommand_TypeDef command, const QVector<uint8_t> &) {
        trace.events << QString::number(command);
        if (command == 201)
            trace.parser.dropWaiting();
    };
    QByteArray damaged = frame(203, "abcd");
    damaged[17] = 'x';
    trace.feed(frame(201, {}) + frame(202, {}) + damaged + frame(204, "cut off").left(19));
    QVERIFY(!trace.parser.hasWaiting());
    trace.feed(frame(205, {}));
    QCOMPARE(trace.events, (QStringList{"201", "205"}));
}

void tst_FrameParserWaiting::bytesOfAllUnfinishedFeedsAreDropped()
{
    Trace trace;
    trace.handler = [&](ComioInterfaceCommand_TypeDef command, const QVector<uint8_t> &) {
        trace.events << QString::number(command);
        if (command == 201)
            trace.feed(frame(203, {}) + frame(204, {}));
        if (command == 202)
            trace.parser.dropWaiting();
    };
    trace.feed(frame(201, {}) + frame(202, {}) + frame(205, {}));
    QCOMPARE(trace.events, (QStringList{"201", "202"}));
}

QTEST_APPLESS_MAIN(tst_FrameParserWaiting)
#include "tst_frameparser_waiting.moc"
