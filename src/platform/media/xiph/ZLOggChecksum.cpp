#include "platform/media/xiph/ZLOggChecksum.h"

#include <array>

namespace {

constexpr quint32 polynomial = 0x04C11DB7;

constexpr quint32 timesX(quint32 value)
{
    return value << 1 ^ (value & 0x80000000U ? polynomial : 0);
}

constexpr std::array<quint32, 256> makeTable()
{
    std::array<quint32, 256> sums {};
    for (quint32 index = 0; index < 256; ++index) {
        quint32 value = index << 24;
        for (int bit = 0; bit < 8; ++bit)
            value = timesX(value);
        sums.at(index) = value;
    }
    return sums;
}

constexpr std::array<quint32, 256> checksumTable = makeTable();

/// The product of two polynomials, modulo that of the checksum.
quint32 product(quint32 left, quint32 right)
{
    quint32 result = 0;
    for (int bit = 31; bit >= 0; --bit)
        result = timesX(result) ^ (left >> bit & 1U ? right : 0);
    return result;
}

/// The eighth power of x, to the power of `bytes`.
quint32 powerForBytes(qint64 bytes)
{
    quint32 result = 1;
    for (quint32 square = 0x100; bytes > 0; bytes >>= 1, square = product(square, square)) {
        if (bytes & 1)
            result = product(result, square);
    }
    return result;
}

}

quint32 ZLOggChecksum::of(const QByteArray& page)
{
    quint32 sum = 0;
    for (const char byte : page)
        sum = sum << 8 ^ checksumTable.at(sum >> 24 ^ uchar(byte));
    return sum;
}

quint32 ZLOggChecksum::ofChange(const QByteArray& change, qint64 bytesBehind)
{
    return product(of(change), powerForBytes(bytesBehind));
}
