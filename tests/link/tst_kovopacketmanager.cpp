#include "link/kovoPacketManager.h"

#include "support/captureddiagnostics.h"
#include "support/referenceframes.h"

#include <QSignalSpy>
#include <QtTest>

#include <memory>

using Message = QPair<quint32, QByteArray>;

static QVector<Message> messages(const QSignalSpy &spy)
{
    QVector<Message> result;
    for (const QList<QVariant> &arguments : spy) {
        const auto payload = arguments.at(1).value<QVector<uint8_t>>();
        result.append({arguments.at(0).value<ComioInterfaceCommand_TypeDef>(),
                       {reinterpret_cast<const char *>(payload.constData()), payload.size()}});
    }
    return result;
}

class tst_kovoPacketManager : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void buildsTheConfigurationRequest();
    void fieldsAreBigEndianAndThePayloadIsCopiedAsItIs();
    void payloadIsPaddedToWholeWords_data();
    void payloadIsPaddedToWholeWords();
    void oldContentOfTheFrameIsDropped();
    void largePayloadsAreNotLimited();
    void deliversWhatItBuilt();
    void joinsPartsOfAMessage();
    void damagedFrameIsCommand1();
    void parserStateIsSharedByAllManagersAndOutlivesThem();
    void bytesFedByAReceiverAreParsedAfterThoseWaiting();
    void slotIsInvokableByName();
    void belongsToItsParent();

private:
    static QByteArray prepared(const QByteArray &payload, uint16_t part = 1, uint16_t count = 1,
                               quint32 command = 102)
    {
        QByteArray frame;
        kovoPacketManager(nullptr).prepareMessage(
            payload.constData(), static_cast<size_t>(payload.size()), part, count,
            static_cast<ComioInterfaceCommand_TypeDef>(command), frame);
        return frame;
    }
};

void tst_kovoPacketManager::initTestCase()
{
    // Under the name that the signal's declaration uses, for the signal spies.
    qRegisterMetaType<QVector<uint8_t>>("QVector<uint8_t>");
}

void tst_kovoPacketManager::buildsTheConfigurationRequest()
{
    QByteArray frame;
    kovoPacketManager(nullptr).prepareMessage(nullptr, 0, 1, 1, COMIO_CMD_GET_CONFIG, frame);
    QCOMPARE(frame.toHex(), QByteArray("4b4f564f000000100001000100000066cd6e078b00"));
}

void tst_kovoPacketManager::fieldsAreBigEndianAndThePayloadIsCopiedAsItIs()
{
    const QByteArray frame = prepared(QByteArray::fromHex("00ff4b80"), 0x1234, 0xABCD, 0xFFEEDDCC);
    QCOMPARE(frame.left(20).toHex(), QByteArray("4b4f564f000000141234abcdffeeddcc00ff4b80"));
    QCOMPARE(frame.size(), 25);
    QCOMPARE(frame.back(), '\0');
    const auto crc = reference::crc(reinterpret_cast<const uint8_t *>(frame.constData()) + 4, 16);
    QCOMPARE(frame.mid(20, 4).toHex().toUInt(nullptr, 16), crc);
}

void tst_kovoPacketManager::payloadIsPaddedToWholeWords_data()
{
    QTest::addColumn<int>("size");
    for (int size = 0; size <= 9; ++size)
        QTest::addRow("%d bytes", size) << size;
    QTest::newRow("a configuration record") << 223;
    QTest::newRow("the largest frame") << 1008;
}

void tst_kovoPacketManager::payloadIsPaddedToWholeWords()
{
    QFETCH(int, size);
    const QByteArray payload(size, '\xEE');
    const int padded = size % 4 == 0 ? size : size + 4 - size % 4;
    const QByteArray frame = prepared(payload);
    QCOMPARE(frame.size(), padded + 21);
    QCOMPARE(frame, reference::frame(102, payload));
    QCOMPARE(frame.mid(16, padded), payload + QByteArray(padded - size, '\0'));
}

void tst_kovoPacketManager::oldContentOfTheFrameIsDropped()
{
    QByteArray frame(500, 'x');
    const QByteArray shared = frame;
    kovoPacketManager(nullptr).prepareMessage("abcde", 5, 1, 1, COMIO_CMD_GET_CONFIG, frame);
    QCOMPARE(frame, reference::frame(102, "abcde"));
    QCOMPARE(shared, QByteArray(500, 'x'));
}

void tst_kovoPacketManager::largePayloadsAreNotLimited()
{
    const QByteArray payload(200001, 'x');
    QCOMPARE(prepared(payload), reference::frame(102, payload));
}

void tst_kovoPacketManager::deliversWhatItBuilt()
{
    kovoPacketManager manager(nullptr);
    QSignalSpy spy(&manager, &kovoPacketManager::signalMessageReceived);
    manager.slotPacketStateMachine(prepared("GPRMC", 1, 1, 226) + prepared("", 1, 1, 0xFFFFFFFF));
    QCOMPARE(messages(spy),
             (QVector<Message>{{226, QByteArray("GPRMC\0\0\0", 8)}, {0xFFFFFFFF, QByteArray()}}));
}

void tst_kovoPacketManager::joinsPartsOfAMessage()
{
    kovoPacketManager manager(nullptr);
    QSignalSpy spy(&manager, &kovoPacketManager::signalMessageReceived);
    manager.slotPacketStateMachine(prepared("abcde", 1, 2, 211));
    QCOMPARE(spy.size(), 0);
    manager.slotPacketStateMachine(prepared("fghi", 2, 2, 202));
    QCOMPARE(messages(spy), QVector<Message>({{202, QByteArray("abcde\0\0\0fghi", 12)}}));
}

void tst_kovoPacketManager::damagedFrameIsCommand1()
{
    kovoPacketManager manager(nullptr);
    QSignalSpy spy(&manager, &kovoPacketManager::signalMessageReceived);
    QByteArray damaged = prepared("abcd");
    damaged[17] = 'x';
    CapturedDiagnostics diagnostics;
    manager.slotPacketStateMachine(damaged);
    QCOMPARE(messages(spy), QVector<Message>({{COMIO_CMD_CRC_ERROR, QByteArray()}}));
    QCOMPARE(diagnostics.out(),
             QString("<<< ERROR crc service: data invalid\n"
                     "kovoPacketManager::slotPacketStateMachine() CRC invalid\n"));
    QCOMPARE(diagnostics.err(), QString());
}

void tst_kovoPacketManager::parserStateIsSharedByAllManagersAndOutlivesThem()
{
    const QByteArray frame = prepared("abcd", 1, 1, 202);
    auto first = std::make_unique<kovoPacketManager>(nullptr);
    first->slotPacketStateMachine(frame.left(11));
    first.reset();
    kovoPacketManager second(nullptr);
    kovoPacketManager third(nullptr);
    QSignalSpy secondSpy(&second, &kovoPacketManager::signalMessageReceived);
    QSignalSpy thirdSpy(&third, &kovoPacketManager::signalMessageReceived);
    second.slotPacketStateMachine(frame.mid(11, 5));
    third.slotPacketStateMachine(frame.mid(16));
    QCOMPARE(secondSpy.size(), 0);
    QCOMPARE(messages(thirdSpy), QVector<Message>({{202, "abcd"}}));
}

void tst_kovoPacketManager::bytesFedByAReceiverAreParsedAfterThoseWaiting()
{
    kovoPacketManager manager(nullptr);
    QSignalSpy spy(&manager, &kovoPacketManager::signalMessageReceived);
    const QByteArray third = prepared("3333", 1, 1, 203);
    bool fed = false;
    int deliveredInside = 0;
    connect(&manager, &kovoPacketManager::signalMessageReceived, this, [&] {
        if (fed)
            return;
        fed = true;
        manager.slotPacketStateMachine(third.mid(9));
        deliveredInside = spy.size();
    });
    manager.slotPacketStateMachine(prepared("1111", 1, 1, 201) + prepared("2222", 1, 1, 202) +
                                   third.left(9));
    QCOMPARE(messages(spy), QVector<Message>({{201, "1111"}, {202, "2222"}, {203, "3333"}}));
    QCOMPARE(deliveredInside, 3);
}

void tst_kovoPacketManager::slotIsInvokableByName()
{
    kovoPacketManager manager(nullptr);
    QSignalSpy spy(&manager,
                   SIGNAL(signalMessageReceived(ComioInterfaceCommand_TypeDef, QVector<uint8_t>)));
    QVERIFY(QMetaObject::invokeMethod(&manager, "slotPacketStateMachine",
                                      Q_ARG(QByteArray, prepared("", 1, 1, 216))));
    QCOMPARE(messages(spy), QVector<Message>({{216, QByteArray()}}));
}

void tst_kovoPacketManager::belongsToItsParent()
{
    QObject parent;
    QCOMPARE(kovoPacketManager(&parent).parent(), &parent);
}

QTEST_GUILESS_MAIN(tst_kovoPacketManager)
#include "tst_kovopacketmanager.moc"
