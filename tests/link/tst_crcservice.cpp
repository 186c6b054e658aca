#include "link/CRCService.h"

#include "support/captureddiagnostics.h"

#include <QtTest>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <random>
#include <vector>

// CRC-32/MPEG-2, byte by byte and bit by bit, over the bytes with every group of four reversed.
static uint32_t mpeg2OfReversedGroups(std::vector<uint8_t> bytes)
{
    for (std::size_t i = 0; i < bytes.size(); i += 4)
        std::reverse(bytes.begin() + static_cast<long>(i),
                     bytes.begin() + static_cast<long>(i) + 4);
    uint32_t crc = 0xFFFFFFFFU;
    for (const uint8_t byte : bytes)
        for (int bit = 7; bit >= 0; --bit) {
            const bool out = (crc >> 31 != 0) != ((byte >> bit & 1) != 0);
            crc = crc << 1 ^ (out ? 0x04C11DB7U : 0U);
        }
    return crc;
}

static uint32_t bitwise(uint32_t crc, uint32_t word)
{
    crc ^= word;
    for (int i = 0; i < 32; ++i)
        crc = (crc & 0x80000000U) != 0 ? (crc << 1) ^ 0x04C11DB7U : crc << 1;
    return crc;
}

class tst_CRCService : public QObject
{
    Q_OBJECT

private slots:
    void workedValues_data();
    void workedValues();
    void byteOrderMatters();
    void everyLengthEqualsByteReversedMpeg2();
    void dataMayLieAtAnyAddress();
    void wordFoldEqualsTheBitwiseDefinition();
    void blockOfNoWordsKeepsTheCrc();
    void blockContinuesARunningCrc();
    void emptyDataIsValid();
    void lengthsOffTheWordAreRefusedUnread_data();
    void lengthsOffTheWordAreRefusedUnread();
    void lengthIsCheckedBeforeTheMode();
    void wrongModeIsRefused_data();
    void wrongModeIsRefused();
    void matchingCrcIsValidAndSilent();
    void mismatchKeepsTheExpectedCrc();
};

void tst_CRCService::workedValues_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<unsigned int>("crc");
    QTest::newRow("zero word") << QByteArray::fromHex("00000000") << 0xC704DD7BU;
    QTest::newRow("1 2 3 4") << QByteArray::fromHex("01020304") << 0x1DABE74FU;
    QTest::newRow("configuration request")
        << QByteArray::fromHex("000000100001000100000066") << 0xCD6E078BU;
}

void tst_CRCService::workedValues()
{
    QFETCH(QByteArray, bytes);
    QFETCH(unsigned int, crc);
    CapturedDiagnostics diagnostics;
    const auto size = static_cast<unsigned int>(bytes.size());
    const CRCService computed(bytes.constData(), size, CRCService::Compute);
    QCOMPARE(computed.getCRC(), crc);
    QVERIFY(computed.isValid());
    QVERIFY(CRCService(bytes.constData(), size, crc, CRCService::Verify).isValid());
    QCOMPARE(diagnostics.out(), QString());
}

void tst_CRCService::byteOrderMatters()
{
    const std::array<uint8_t, 4> bytes{4, 3, 2, 1};
    QVERIFY(CRCService(bytes.data(), 4, CRCService::Compute).getCRC() != 0x1DABE74FU);
}

void tst_CRCService::everyLengthEqualsByteReversedMpeg2()
{
    std::mt19937 random(20240611);
    for (std::size_t size = 0; size <= 1100; size += 4) {
        std::vector<uint8_t> bytes(size);
        for (uint8_t &byte : bytes)
            byte = static_cast<uint8_t>(random());
        const CRCService crc(bytes.data(), static_cast<unsigned int>(size), CRCService::Compute);
        QCOMPARE(crc.getCRC(), mpeg2OfReversedGroups(bytes));
    }
}

void tst_CRCService::dataMayLieAtAnyAddress()
{
    std::vector<uint8_t> bytes(100);
    for (std::size_t i = 0; i < bytes.size(); ++i)
        bytes[i] = static_cast<uint8_t>(37 * i + 11);
    const uint32_t expected = mpeg2OfReversedGroups(bytes);
    std::vector<uint8_t> room(bytes.size() + 16);
    for (std::size_t shift = 0; shift < 16; ++shift) {
        std::memcpy(room.data() + shift, bytes.data(), bytes.size());
        QCOMPARE(CRCService(room.data() + shift, 100, CRCService::Compute).getCRC(), expected);
    }
}

void tst_CRCService::wordFoldEqualsTheBitwiseDefinition()
{
    for (int bit = 0; bit < 32; ++bit) {
        QCOMPARE(crc32(0, 1U << bit), bitwise(0, 1U << bit));
        QCOMPARE(crc32(1U << bit, 0xFFFFFFFFU), bitwise(1U << bit, 0xFFFFFFFFU));
    }
    std::mt19937 random(7);
    for (int i = 0; i < 10000; ++i) {
        const auto crc = static_cast<uint32_t>(random());
        const auto word = static_cast<uint32_t>(random());
        QCOMPARE(crc32(crc, word), bitwise(crc, word));
    }
}

void tst_CRCService::blockOfNoWordsKeepsTheCrc()
{
    QCOMPARE(crc32block(0x12345678U, 0, nullptr), 0x12345678U);
}

void tst_CRCService::blockContinuesARunningCrc()
{
    std::array<unsigned int, 41> words{};
    std::mt19937 random(99);
    for (unsigned int &word : words)
        word = static_cast<unsigned int>(random());
    for (unsigned int split = 0; split <= words.size(); ++split) {
        unsigned int expected = 0xCAFEF00DU;
        for (const unsigned int word : words)
            expected = bitwise(expected, word);
        const unsigned int first = crc32block(0xCAFEF00DU, split, words.data());
        const auto rest = static_cast<unsigned int>(words.size()) - split;
        QCOMPARE(crc32block(first, rest, words.data() + split), expected);
    }
}

void tst_CRCService::emptyDataIsValid()
{
    const CRCService computed(nullptr, 0, CRCService::Compute);
    QCOMPARE(computed.getCRC(), 0xFFFFFFFFU);
    QVERIFY(computed.isValid());
    CapturedDiagnostics diagnostics;
    const CRCService verified(nullptr, 0, 0xFFFFFFFFU, CRCService::Verify);
    QCOMPARE(verified.getCRC(), 0xFFFFFFFFU);
    QVERIFY(verified.isValid());
    QCOMPARE(diagnostics.out() + diagnostics.err(), QString());
    const CRCService mismatch(nullptr, 0, 0U, CRCService::Verify);
    QCOMPARE(mismatch.getCRC(), 0U);
    QVERIFY(!mismatch.isValid());
    QCOMPARE(diagnostics.out(), QString("<<< ERROR crc service: data invalid\n"));
    const CRCService other(nullptr, 0, 0xFFFFFFFEU, CRCService::Verify);
    QCOMPARE(other.getCRC(), 0xFFFFFFFEU);
    QVERIFY(!other.isValid());
    QCOMPARE(diagnostics.err(), QString());
}

void tst_CRCService::lengthsOffTheWordAreRefusedUnread_data()
{
    QTest::addColumn<unsigned int>("length");
    for (const unsigned int length : {1U, 2U, 3U, 5U, 1023U})
        QTest::addRow("%u", length) << length;
}

void tst_CRCService::lengthsOffTheWordAreRefusedUnread()
{
    QFETCH(unsigned int, length);
    CapturedDiagnostics diagnostics;
    // A null pointer: any read would end the program.
    const CRCService computed(nullptr, length, CRCService::Compute);
    QCOMPARE(computed.getCRC(), 0U);
    QVERIFY(!computed.isValid());
    QCOMPARE(diagnostics.out(),
             QString("Error CRCService: data has to be multiple of  4 bytes!\n"));

    diagnostics.clear();
    const CRCService verified(nullptr, length, 0x1DABE74FU, CRCService::Verify);
    QCOMPARE(verified.getCRC(), 0U);
    QVERIFY(!verified.isValid());
    QCOMPARE(diagnostics.out(),
             QString("<<< Error CRCService: data has to be multiple of 4 bytes!\n"));
    QCOMPARE(diagnostics.err(), QString());
}

void tst_CRCService::lengthIsCheckedBeforeTheMode()
{
    CapturedDiagnostics diagnostics;
    CRCService(nullptr, 3, CRCService::Verify);
    CRCService(nullptr, 3, 0, CRCService::Compute);
    QCOMPARE(diagnostics.out(),
             QString("Error CRCService: data has to be multiple of  4 bytes!\n"
                     "<<< Error CRCService: data has to be multiple of 4 bytes!\n"));
}

void tst_CRCService::wrongModeIsRefused_data()
{
    QTest::addColumn<int>("computeMode");
    QTest::addColumn<int>("verifyMode");
    QTest::newRow("the other one") << 0 << 1;
    QTest::newRow("beyond") << 2 << 2;
    QTest::newRow("negative") << -1 << -1;
}

void tst_CRCService::wrongModeIsRefused()
{
    QFETCH(int, computeMode);
    QFETCH(int, verifyMode);
    const std::array<uint8_t, 4> bytes{1, 2, 3, 4};
    CapturedDiagnostics diagnostics;
    const CRCService computed(bytes.data(), 4,
                              static_cast<CRCService::CRCServiceMode>(computeMode));
    QCOMPARE(computed.getCRC(), 0U);
    QVERIFY(!computed.isValid());
    QCOMPARE(diagnostics.out(), QString("ERROR crc service: no valid MODE field\n"));

    diagnostics.clear();
    const CRCService verified(bytes.data(), 4, 0x1DABE74FU,
                              static_cast<CRCService::CRCServiceMode>(verifyMode));
    QCOMPARE(verified.getCRC(), 0U);
    QVERIFY(!verified.isValid());
    QCOMPARE(diagnostics.out(), QString("<<< ERROR crc service: no valid MODE field\n"));
    QCOMPARE(diagnostics.err(), QString());
}

void tst_CRCService::matchingCrcIsValidAndSilent()
{
    const std::array<uint8_t, 4> bytes{1, 2, 3, 4};
    CapturedDiagnostics diagnostics;
    const CRCService verified(bytes.data(), 4, 0x1DABE74FU, CRCService::Verify);
    QCOMPARE(verified.getCRC(), 0x1DABE74FU);
    QVERIFY(verified.isValid());
    QCOMPARE(diagnostics.out() + diagnostics.err(), QString());
}

void tst_CRCService::mismatchKeepsTheExpectedCrc()
{
    const std::array<uint8_t, 4> bytes{1, 2, 3, 4};
    CapturedDiagnostics diagnostics;
    const CRCService verified(bytes.data(), 4, 0x1DABE74EU, CRCService::Verify);
    QCOMPARE(verified.getCRC(), 0x1DABE74EU);
    QVERIFY(!verified.isValid());
    QCOMPARE(diagnostics.out(), QString("<<< ERROR crc service: data invalid\n"));
    QCOMPARE(diagnostics.err(), QString());
}

QTEST_APPLESS_MAIN(tst_CRCService)
#include "tst_crcservice.moc"
