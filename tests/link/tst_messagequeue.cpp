#include "link/MessageQueue.h"

#include "support/captureddiagnostics.h"

#include <QtTest>

static ComioInterfaceCommand_TypeDef command(int number)
{
    return static_cast<ComioInterfaceCommand_TypeDef>(number);
}

class tst_MessageQueue : public QObject
{
    Q_OBJECT

private slots:
    void keepsTheOrder();
    void refusesTooManyWithOneLine();
    void refusesTooManyBytes();
    void forgetsTheMessagesOfOneRead();
};

void tst_MessageQueue::keepsTheOrder()
{
    MessageQueue queue;
    QVERIFY(queue.isEmpty());
    QVERIFY(queue.append({command(302), {}}));
    QVERIFY(queue.append({command(226), {'a', 0, 0, 0}}));
    MessageQueue::Message message = queue.takeFirst();
    QCOMPARE(quint32(message.command), 302U);
    QVERIFY(message.payload.isEmpty());
    message = queue.takeFirst();
    QCOMPARE(quint32(message.command), 226U);
    QCOMPARE(message.payload, (QVector<uint8_t>{'a', 0, 0, 0}));
    QVERIFY(queue.isEmpty());
}

void tst_MessageQueue::refusesTooManyWithOneLine()
{
    MessageQueue queue;
    CapturedDiagnostics lines;
    const auto fill = [&] {
        while (queue.append({command(302), {}})) {
        }
    };
    for (int i = 0; i < 65536; ++i)
        QVERIFY(queue.append({command(i), {}}));
    QCOMPARE(lines.err(), QString());
    for (int i = 0; i < 5; ++i)
        QVERIFY(!queue.append({command(302), {}}));
    const QString line =
        "<<< 65536 messages are waiting for a box to be answered: what arrives now "
        "is lost\n";
    QCOMPARE(lines.err(), line);

    // One that leaves makes room for one; nothing but the refused are missing.
    QCOMPARE(quint32(queue.takeFirst().command), 0U);
    QVERIFY(queue.append({command(70000), {}}));
    QVERIFY(!queue.append({command(302), {}}));
    QCOMPARE(lines.err(), line);
    for (int i = 1; i < 65536; ++i)
        QCOMPARE(quint32(queue.takeFirst().command), quint32(i));
    QCOMPARE(quint32(queue.takeFirst().command), 70000U);
    QVERIFY(queue.isEmpty());

    fill();
    QCOMPARE(lines.err(), line + line);
    QCOMPARE(lines.out(), QString());
}

void tst_MessageQueue::refusesTooManyBytes()
{
    MessageQueue queue;
    CapturedDiagnostics lines;
    const QVector<uint8_t> payload(1024 * 1024);
    for (int i = 0; i < 16; ++i)
        QVERIFY(queue.append({command(211), payload}));
    QVERIFY(!queue.append({command(211), {0, 0, 0, 0}}));
    QCOMPARE(lines.err().count('\n'), 1);
    QVERIFY(queue.append({command(302), {}})); // takes no room
    queue.takeFirst();
    QVERIFY(queue.append({command(211), payload}));
}

void tst_MessageQueue::forgetsTheMessagesOfOneRead()
{
    MessageQueue queue;
    const QVector<uint8_t> half(MessageQueue::MaximumBytes / 2);
    QVERIFY(queue.append({command(1), {}, 1}));
    QVERIFY(queue.append({command(2), half, 2}));
    QVERIFY(queue.append({command(3), {}, 3, true}));
    QVERIFY(queue.append({command(4), half, 2}));
    queue.dropRead(2);
    QVERIFY(queue.append({command(5), half, 4})); // in the room of those that were dropped
    QVERIFY(queue.append({command(6), half, 4}));
    QCOMPARE(quint32(queue.takeFirst().command), 1U);
    const MessageQueue::Message message = queue.takeFirst();
    QCOMPARE(quint32(message.command), 3U);
    QVERIFY(message.refusal);
    queue.dropRead(4);
    QVERIFY(queue.isEmpty());
}

QTEST_GUILESS_MAIN(tst_MessageQueue)
#include "tst_messagequeue.moc"
