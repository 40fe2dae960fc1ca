#include "ZLMediaFixture.h"

#include "platform/media/mp3/ZLID3Tag.h"

using namespace Qt::StringLiterals;

class ZLID3TagTest : public ZLMediaFixture {
protected:
    ZLID3Tag read(const QByteArray& bytes) const
    {
        const auto source = ZLMediaSource::open(store(bytes + mp3Sound()));
        return ZLID3Tag::readAt(*source.value(), 0).value();
    }
};

TEST_F(ZLID3TagTest, FramesThatNobodyKnowsStayByteForByte)
{
    const QByteArray frames = frameOfVersion3("XYZ1", "a\xFF\x00b") + frameOfVersion3("RVAD", QByteArray(20, '\1'));
    const ZLID3Tag tag = read(id3Tag(3, frames + QByteArray(100, '\0')));
    EXPECT_EQ(tag.frames().size(), 2);
    EXPECT_EQ(tag.bytes().value(), id3Tag(3, frames + QByteArray(100, '\0')));
}

TEST_F(ZLID3TagTest, SizesThatSomeWritersGiveInFullAreUnderstood)
{
    // In version 2.4 a size has seven bits a byte; this one, of 200 bytes, has eight.
    const QByteArray first = frameOfVersion3("PRIV", QByteArray(200, 'x'));
    const QByteArray second = frameOfVersion3("TIT2", QByteArray("\3Title"));
    const ZLID3Tag tag = read(id3Tag(4, first + second));
    ASSERT_EQ(tag.frames().size(), 2);
    EXPECT_EQ(tag.frames().at(1).contents(), QByteArray("\3Title"));
}

TEST_F(ZLID3TagTest, ATagGrowsByWholeBlocksOfADisk)
{
    ZLID3Tag tag = read(id3Tag(3, frameOfVersion3("TIT2", QByteArray("\0a", 2))));
    const auto former = tag.formerSize();
    tag.append({ "PRIV", frameOfVersion3("PRIV", QByteArray(5000, 'x')) });
    EXPECT_EQ(tag.bytes().value().size(), former + 2 * 4096);
}

TEST_F(ZLID3TagTest, WhatStandsBehindTheFramesStays)
{
    const QByteArray frame = frameOfVersion3("TIT2", QByteArray("\0a", 2));
    const QByteArray cutOff = frameOfVersion3("CHAP", QByteArray(90, 'x')).chopped(60);
    const ZLID3Tag tag = read(id3Tag(3, frame + cutOff + QByteArray(50, '\0')));
    EXPECT_EQ(tag.frames().size(), 1);
    EXPECT_EQ(tag.bytes().value(), id3Tag(3, frame + QByteArray(50, '\0') + cutOff));
    EXPECT_EQ(read(tag.bytes().value()).frames().size(), 1) << "padding completed the frame";
}

TEST_F(ZLID3TagTest, ATagThatClaimsMoreThanTheFileIsRefused)
{
    const QByteArray bytes = id3Tag(3, {}).left(6) + QByteArray("\x7F\x7F\x7F\x7F", 4);
    const auto source = ZLMediaSource::open(store(bytes));
    EXPECT_FALSE(ZLID3Tag::readAt(*source.value(), 0));
}
