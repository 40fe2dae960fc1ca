#include "document/shared/ZLRecorderFiles.h"

#include "support/ZLDocumentFixture.h"

using namespace Qt::StringLiterals;

class ZLRecorderFilesTest : public ZLDocumentFixture {
protected:
    [[nodiscard]] QList<ZLRecorderFile> kept() const
    {
        return ZLRecorderFiles::in(m_document.extras().value(ZLRecorderFiles::Key));
    }
};

TEST_F(ZLRecorderFilesTest, EachFileIsKeptOnceInItsOrder)
{
    EXPECT_TRUE(kept().isEmpty());
    ZLRecorderFiles::add(m_document.extras(), { u"/shows/one.mkv"_s, 0.0 });
    ZLRecorderFiles::add(m_document.extras(), { u"/shows/two.mkv"_s, 1800.5 });
    ZLRecorderFiles::add(m_document.extras(), { u"/shows/one.mkv"_s, 7.0 });
    const QList<ZLRecorderFile> expected { { u"/shows/one.mkv"_s, 0.0 }, { u"/shows/two.mkv"_s, 1800.5 } };
    EXPECT_EQ(kept(), expected);
    EXPECT_FALSE(history().canUndo());
}

TEST_F(ZLRecorderFilesTest, WhatMakesNoSenseIsLeftOutAndStays)
{
    const QVariantList odd { 12, QVariantMap { { u"Path"_s, QString() }, { u"Reading"_s, 1.0 } },
        QVariantMap { { u"Path"_s, u"/far.mkv"_s }, { u"Reading"_s, qInf() } },
        QVariantMap { { u"Path"_s, u"/right.mkv"_s }, { u"Reading"_s, 3 } } };
    m_document.extras().keep(ZLRecorderFiles::Key, odd);
    const QList<ZLRecorderFile> expected { { u"/right.mkv"_s, 3.0 } };
    EXPECT_EQ(kept(), expected);
    ZLRecorderFiles::add(m_document.extras(), { u"/next.mkv"_s, 4.0 });
    EXPECT_EQ(kept().size(), 2);
    EXPECT_EQ(m_document.extras().value(ZLRecorderFiles::Key).toList().size(), odd.size() + 1);
    EXPECT_TRUE(ZLRecorderFiles::in(u"text"_s).isEmpty());
}
