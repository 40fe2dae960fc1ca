#include "platform/media/xiph/ZLOggChecksum.h"

#include <gtest/gtest.h>

TEST(ZLOggChecksumTest, KnownSum)
{
    // The checksum of the polynomial 0x04C11DB7 without reflection and without inversion.
    EXPECT_EQ(ZLOggChecksum::of("123456789"), 0x89A1897FU);
    EXPECT_EQ(ZLOggChecksum::of(QByteArray(100, '\0')), 0U);
}

TEST(ZLOggChecksumTest, AChangeIsTheDifferenceOfTheSums)
{
    const QByteArray page(60'000, 'x');
    const quint32 before = ZLOggChecksum::of(page);
    const QByteArray change("\x12\x00\xFF\x80", 4);
    for (const qsizetype at : { 0, 18, 59'996 }) {
        QByteArray changed = page;
        for (qsizetype index = 0; index < change.size(); ++index)
            changed[at + index] = char(changed.at(at + index) ^ change.at(index));
        EXPECT_EQ(ZLOggChecksum::of(changed), before ^ ZLOggChecksum::ofChange(change, page.size() - at - 4));
    }
}
