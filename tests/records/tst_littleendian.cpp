#include "records/LittleEndian.h"

#include <QTest>

#include <cstring>

class TestLittleEndian : public QObject
{
    Q_OBJECT

private slots:
    void leastSignificantByteComesFirst()
    {
        const le_u32 number = 0x01341655;
        QCOMPARE(QByteArray(reinterpret_cast<const char *>(&number), sizeof number),
                 QByteArray("\x55\x16\x34\x01"));
        const le_i16 negative = qint16(-273);
        QCOMPARE(QByteArray(reinterpret_cast<const char *>(&negative), sizeof negative),
                 QByteArray("\xEF\xFE"));
    }

    void readsAtAnyAddress()
    {
        const char bytes[] = "\x00\x30\xF8\xFF\xFF";
        struct Odd
        {
            quint8 first;
            le_i32 number;
        } odd;
        static_assert(sizeof odd == 5);
        std::memcpy(&odd, bytes, sizeof odd);
        QCOMPARE(qint32(odd.number), -2000);
    }

    void assignmentReplacesAllBytes()
    {
        le_u16 number = quint16(0xFFFF);
        number = 7;
        QCOMPARE(quint16(number), quint16(7));
    }
};

QTEST_APPLESS_MAIN(TestLittleEndian)
#include "tst_littleendian.moc"
