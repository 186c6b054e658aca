#include "link/CRCService.h"

#include "diagnostics/diagnostics.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>

static constexpr std::uint32_t Polynomial = 0x04C11DB7;
static constexpr std::uint32_t InitialCrc = 0xFFFFFFFF;
static constexpr std::size_t WordSize = 4;

// Sixteen tables fold four words in one step: tables[k][b] is what a byte b leaves behind once k
// more bytes have been shifted through the register.
using Tables = std::array<std::array<std::uint32_t, 256>, 16>;

static constexpr Tables makeTables()
{
    Tables tables{};
    for (std::uint32_t byte = 0; byte < 256; ++byte) {
        std::uint32_t crc = byte << 24;
        for (int bit = 0; bit < 8; ++bit)
            crc = (crc & 0x80000000U) ? (crc << 1) ^ Polynomial : crc << 1;
        tables[0][byte] = crc;
    }
    for (std::size_t k = 1; k < tables.size(); ++k)
        for (std::size_t byte = 0; byte < 256; ++byte) {
            const std::uint32_t crc = tables[k - 1][byte];
            tables[k][byte] = (crc << 8) ^ tables[0][crc >> 24];
        }
    return tables;
}

static constexpr Tables tables = makeTables();

// The register's content `word` after its own four bytes and `Following` more.
template <std::size_t Following>
static std::uint32_t shifted(std::uint32_t word)
{
    return tables[Following + 3][word >> 24] ^ tables[Following + 2][(word >> 16) & 0xFF] ^
           tables[Following + 1][(word >> 8) & 0xFF] ^ tables[Following][word & 0xFF];
}

static std::uint32_t load(const unsigned char *bytes)
{
    std::uint32_t word; // in the host's order; a frame's region may lie at any address
    std::memcpy(&word, bytes, sizeof word);
    return word;
}

static std::uint32_t fold(std::uint32_t crc, unsigned int count, const unsigned char *bytes)
{
    // Of four words only the first meets the running CRC. What the others leave is kept apart, so
    // that their look-ups need not wait for those of the first.
    std::uint32_t others = 0;
    for (; count >= 4; count -= 4, bytes += 4 * WordSize) {
        crc = shifted<12>(crc ^ others ^ load(bytes));
        others = shifted<8>(load(bytes + WordSize)) ^ shifted<4>(load(bytes + 2 * WordSize)) ^
                 shifted<0>(load(bytes + 3 * WordSize));
    }
    crc ^= others;
    for (; count > 0; --count, bytes += WordSize)
        crc = shifted<0>(crc ^ load(bytes));
    return crc;
}

static std::uint32_t blockCrc(const void *data, unsigned int length)
{
    return fold(InitialCrc, static_cast<unsigned int>(length / WordSize),
                static_cast<const unsigned char *>(data));
}

unsigned int crc32(unsigned int crc, unsigned int data)
{
    return shifted<0>(crc ^ data);
}

unsigned int crc32block(unsigned int crc, unsigned int count, unsigned int *data)
{
    return fold(crc, count, reinterpret_cast<const unsigned char *>(data));
}

CRCService::CRCService(const void *data, unsigned int length, CRCServiceMode mode)
{
    if (length % WordSize != 0) {
        diagnostics::out("Error CRCService: data has to be multiple of  4 bytes!");
        return;
    }
    if (mode != Compute) {
        diagnostics::out("ERROR crc service: no valid MODE field");
        return;
    }
    m_crc = blockCrc(data, length);
    m_valid = true;
}

CRCService::CRCService(const void *data, unsigned int length, unsigned int crc, CRCServiceMode mode)
{
    if (length % WordSize != 0) {
        diagnostics::out("<<< Error CRCService: data has to be multiple of 4 bytes!");
        return;
    }
    if (mode != Verify) {
        diagnostics::out("<<< ERROR crc service: no valid MODE field");
        return;
    }
    m_crc = crc;
    m_valid = blockCrc(data, length) == crc;
    if (!m_valid)
        diagnostics::out("<<< ERROR crc service: data invalid");
}
