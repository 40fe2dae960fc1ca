#include "platform/media/ZLPieceWriter.h"

#include <QFile>
#include <QTemporaryDir>
#include <QtEndian>
#include <gtest/gtest.h>

#include <random>

using namespace Qt::StringLiterals;

class ZLPieceWriterTest : public testing::Test {
protected:
    void SetUp() override
    {
        // No stretch of it is like another one, and a kernel copies it in more than one step.
        std::mt19937_64 random { 14 };
        m_bytes = QByteArray(8'500'003, 'z');
        for (qsizetype at = 0; at + 8 <= m_bytes.size(); at += 8)
            qToBigEndian(quint64(random()), m_bytes.data() + at);
        QFile file(m_folder.filePath(u"source"_s));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        ASSERT_EQ(file.write(m_bytes), m_bytes.size());
        file.close();
        const auto opened = ZLMediaSource::open(file.fileName());
        ASSERT_TRUE(opened);
        m_source = opened.value();
    }

    [[nodiscard]] QByteArray written(const ZLFilePieces& pieces)
    {
        QFile file(m_folder.filePath(u"target"_s));
        EXPECT_TRUE(file.open(QIODevice::ReadWrite | QIODevice::Truncate));
        EXPECT_TRUE(ZLPieceWriter(*m_source, file.handle(), m_progress).write(pieces));
        EXPECT_TRUE(file.seek(0));
        return file.readAll();
    }

    QTemporaryDir m_folder;
    QByteArray m_bytes;
    std::shared_ptr<ZLMediaSource> m_source;
    ZLWorkProgress m_progress;
};

TEST_F(ZLPieceWriterTest, StretchesComeWhereTheyBelongWhateverTheirPlaceInABlock)
{
    for (const qint64 begin : { 0, 45, 5000 }) {
        for (const qint64 before : { 0, 4141, 904 }) {
            const QByteArray head(before, 'x');
            ZLFilePieces pieces;
            if (!head.isEmpty())
                pieces.append(head);
            pieces.appendRange(begin, m_bytes.size() - begin);
            pieces.append("end");
            EXPECT_TRUE(written(pieces) == head + m_bytes.mid(begin) + "end") << begin << " " << before;
            EXPECT_EQ(m_progress.fraction(), 1.0);
        }
    }
}

TEST_F(ZLPieceWriterTest, SeveralStretchesAndMadeBytesFollowEachOther)
{
    ZLFilePieces pieces;
    pieces.appendRange(0, 4096);
    pieces.appendMade(10, [](const ZLByteTaker& take) { return take("0123456789"); });
    pieces.appendRange(4106, 4'000'000);
    pieces.appendRange(10, 1);
    EXPECT_TRUE(
        written(pieces) == m_bytes.first(4096) + "0123456789" + m_bytes.mid(4106, 4'000'000) + m_bytes.mid(10, 1));
}

TEST_F(ZLPieceWriterTest, AStretchBeyondTheEndIsAFailure)
{
    for (const qint64 before : { 0, 7 }) {
        ZLFilePieces pieces;
        if (before > 0)
            pieces.append(QByteArray(before, 'x'));
        pieces.appendRange(m_bytes.size() - 4099, 8192);
        QFile file(m_folder.filePath(u"target"_s));
        ASSERT_TRUE(file.open(QIODevice::ReadWrite | QIODevice::Truncate));
        EXPECT_FALSE(ZLPieceWriter(*m_source, file.handle(), m_progress).write(pieces));
    }
}
