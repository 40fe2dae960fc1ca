#include "ZLMediaFixture.h"

using namespace Qt::StringLiterals;

class ZLHostileMediaTest : public ZLMediaFixture { };

TEST_F(ZLHostileMediaTest, ChaptersInsideOfChaptersAreNotFollowed)
{
    QByteArray frame = frameOfVersion3("TIT2", QByteArray("\0deep", 5));
    for (int depth = 0; depth < 5'000; ++depth)
        frame = frameOfVersion3("CHAP", QByteArray("id\0", 3) + QByteArray(16, '\0') + frame);
    const QString path = store(id3Tag(3, frame) + mp3Sound());
    const auto read = ZLMediaFile::read(path);
    ASSERT_TRUE(read);
    EXPECT_EQ(read.value().chapters.size(), 1);
    EXPECT_TRUE(write(path, m_chapters));
}

TEST_F(ZLHostileMediaTest, MoreEntriesThanAnyTagHasAreRefused)
{
    const QByteArray bytes = id3Tag(3, frameOfVersion3("TXXX", {}).repeated(100'000)) + mp3Sound();
    const QString path = store(bytes);
    EXPECT_FALSE(ZLMediaFile::read(path));
    EXPECT_FALSE(write(path, m_chapters));
    EXPECT_EQ(contentsOf(path), bytes);
}

TEST_F(ZLHostileMediaTest, PackedFramesInsideOfChaptersAreNotUnpacked)
{
    QByteArray packed = frameOfVersion3("APIC", QByteArray("\0\0\0\xFFjunk", 8));
    packed[8] = 0;
    packed[9] = char(0x80);
    const QByteArray chapter = frameOfVersion3("CHAP", QByteArray("id\0", 3) + QByteArray(16, '\0') + packed);
    const auto read = ZLMediaFile::read(store(id3Tag(3, chapter) + mp3Sound()));
    ASSERT_TRUE(read);
    EXPECT_TRUE(read.value().pictures.isEmpty());
}

TEST_F(ZLHostileMediaTest, SizesThatLieAreErrors)
{
    const auto atom = [](const QByteArray& type, quint32 size, const QByteArray& contents) {
        return ZLBytes::fromBig(size) + type + contents;
    };
    const QByteArray ftyp = atom("ftyp", 16, QByteArray("M4A \0\0\0\0", 8));
    for (const QByteArray& bytes : { ftyp, ftyp + atom("moov", 0xFFFFFFFF, "x"), ftyp + atom("moov", 9, "x"),
             ftyp + atom("moov", 16, atom("trak", 4, {})), ftyp + atom("moov", 1, QByteArray(8, '\xFF')),
             QByteArray("fLaC"), QByteArray("fLaC\x04\xFF\xFF\xFF", 8), QByteArray("OggS"), wave().left(30) }) {
        const QString path = store(bytes);
        const auto read = ZLMediaFile::read(path);
        ASSERT_FALSE(read) << bytes.toHex().constData();
        EXPECT_FALSE(write(path, m_chapters));
        EXPECT_EQ(contentsOf(path), bytes);
    }
}
