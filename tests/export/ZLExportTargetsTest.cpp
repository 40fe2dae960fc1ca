#include "export/ZLExportTargets.h"

#include "platform/ZLAtomicFile.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

ZLExportTarget targetOf(const QString& format, const QString& path)
{
    return { .formatName = format,
        .path = path,
        .option = ZLExportOption::On,
        .linePattern = u"{time}"_s,
        .digest = ZLExportTargets::digestOf("bytes") };
}

}

TEST(ZLExportTargets, EachFormatHasItsLastPlace)
{
    const QTemporaryDir folder;
    const ZLExportTargets targets(folder.path());
    targets.remember(u"/a.zelta"_s, targetOf(u"JSON"_s, u"/old.json"_s));
    targets.remember(u"/a.zelta"_s, targetOf(u"YouTube"_s, u"/y.txt"_s));
    targets.remember(u"/b.zelta"_s, targetOf(u"JSON"_s, u"/b.json"_s));
    targets.remember(u"/a.zelta"_s, targetOf(u"JSON"_s, u"/new.json"_s));
    const QList expected { targetOf(u"JSON"_s, u"/new.json"_s), targetOf(u"YouTube"_s, u"/y.txt"_s) };
    EXPECT_EQ(ZLExportTargets(folder.path()).recall(u"/a.zelta"_s), expected);
    EXPECT_EQ(targets.recall(u"/b.zelta"_s).size(), 1);
}

TEST(ZLExportTargets, ADocumentThatGetsAnotherNameTakesThemAlong)
{
    const QTemporaryDir folder;
    const ZLExportTargets targets(folder.path());
    targets.remember(u"/kept"_s, targetOf(u"JSON"_s, u"/a.json"_s));
    targets.remember(u"/b.zelta"_s, targetOf(u"JSON"_s, u"/former.json"_s));
    targets.move(u"/kept"_s, u"/b.zelta"_s);
    EXPECT_TRUE(targets.recall(u"/kept"_s).isEmpty());
    EXPECT_EQ(targets.recall(u"/b.zelta"_s), QList { targetOf(u"JSON"_s, u"/a.json"_s) });

    targets.move(u"/unknown"_s, u"/b.zelta"_s);
    EXPECT_EQ(targets.recall(u"/b.zelta"_s).size(), 1) << "nothing takes the place of something";
}

TEST(ZLExportTargets, ADocumentWithoutAPathHasNone)
{
    const QTemporaryDir folder;
    const ZLExportTargets targets(folder.path());
    targets.remember({}, targetOf(u"JSON"_s, u"/old.json"_s));
    EXPECT_TRUE(targets.recall({}).isEmpty());
}

TEST(ZLExportTargets, WhatIsNoListIsNothing)
{
    const QTemporaryDir folder;
    const ZLExportTargets targets(folder.path());
    for (const QByteArray& bytes : { QByteArray("x"), QByteArray("{}"), QByteArray("[1,{\"document\":\"/a\"}]"),
             QByteArray("[{\"document\":\"/a\",\"targets\":[1,{\"format\":2}]}]") }) {
        ASSERT_TRUE(ZLAtomicFile::write(folder.filePath(u"export-targets.json"_s), bytes).isOk());
        EXPECT_TRUE(targets.recall(u"/a"_s).isEmpty());
    }
}

TEST(ZLExportTargets, OnlyTheLastDocumentsAreKept)
{
    const QTemporaryDir folder;
    const ZLExportTargets targets(folder.path());
    for (int i = 0; i <= ZLExportTargets::MostDocuments; ++i)
        targets.remember(QString::number(i), targetOf(u"JSON"_s, u"/x.json"_s));
    EXPECT_TRUE(targets.recall(u"0"_s).isEmpty());
    EXPECT_FALSE(targets.recall(u"1"_s).isEmpty());
}
