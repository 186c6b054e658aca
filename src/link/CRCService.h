#pragma once

/// Folds one 32-bit word into a running CRC: polynomial 0x04C11DB7, most significant bit first, no
/// reflection, no final XOR.
unsigned int crc32(unsigned int crc, unsigned int data);

/// Folds `count` consecutive words, in ascending address order, into the running CRC `crc`.
unsigned int crc32block(unsigned int crc, unsigned int count, unsigned int *data);

/// The block CRC of a frame, either computed over a buffer or checked against a received value.
/// The buffer is taken as little-endian 32-bit words and starts from 0xFFFFFFFF.
class CRCService
{
public:
    enum CRCServiceMode : int { Verify = 0, Compute = 1 };

    /// Computes the CRC of `length` bytes; `mode` must be Compute and `length` a multiple of 4,
    /// otherwise one line says so on standard output and the object is not valid.
    CRCService(const void *data, unsigned int length, CRCServiceMode mode);

    /// Compares the CRC of `length` bytes with `crc`; `mode` must be Verify and `length` a multiple
    /// of 4, otherwise, and on a mismatch, one line says so on standard output.
    CRCService(const void *data, unsigned int length, unsigned int crc, CRCServiceMode mode);

    /// The computed CRC, or the expected one in verify mode; 0 after an error.
    unsigned int getCRC() const { return m_crc; }
    /// True once computed, or if the expected CRC fits.
    bool isValid() const { return m_valid; }

private:
    unsigned int m_crc = 0;
    bool m_valid = false;
};
