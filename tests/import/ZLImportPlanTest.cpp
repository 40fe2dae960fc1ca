#include "import/ZLImportPlan.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

ZLImportSource sourceOf(const QString& text)
{
    auto source = ZLImportSource::fromText(text);
    EXPECT_TRUE(source.isOk()) << qPrintable(source.error().message);
    return source ? std::move(source).value() : ZLImportSource {};
}

QStringList rows(const ZLImportPlan& plan)
{
    QStringList rows;
    for (const ZLChapterPointer& chapter : plan.chapters)
        rows.append(u"%1 %2 %3 %4"_s.arg(chapter->timeStamp())
                .arg(chapter->isEnabled())
                .arg(chapter->title(), chapter->link()));
    return rows;
}

const QString pasted = u"Notes\n1:00 News https://a.example/\n0:10 Welcome\nMail\n"_s;

}

TEST(ZLImportPlan, ChaptersComeInTheOrderOfTheirTimes)
{
    const auto plan = ZLImportPlan::make(sourceOf(pasted), {});
    EXPECT_EQ(rows(plan), (QStringList { u"10 1 Welcome "_s, u"60 1 News https://a.example/"_s }));
    EXPECT_FALSE(plan.chapters.constFirst()->link().isNull());
}

TEST(ZLImportPlan, TheShiftMovesAllAndDisablesWhatComesBeforeTheStart)
{
    const auto plan = ZLImportPlan::make(sourceOf(pasted), { .shift = -12.5 });
    EXPECT_EQ(rows(plan), (QStringList { u"-2.5 0 Welcome "_s, u"47.5 1 News https://a.example/"_s }));
}

TEST(ZLImportPlan, LinesWithoutATimeAreToldOrBecomeTemplates)
{
    const auto told = ZLImportPlan::make(sourceOf(pasted), {});
    EXPECT_TRUE(told.templates.isEmpty());
    ASSERT_EQ(told.remarks.size(), 2);
    EXPECT_EQ(ZLImportPlan::remarkText(told.remarks.at(0)), u"Line 1: “Notes” was not understood."_s);
    EXPECT_EQ(told.remarks.at(1).line, 4);

    const auto taken = ZLImportPlan::make(sourceOf(pasted), { .makesTemplates = true });
    EXPECT_EQ(taken.templates, (QStringList { u"Notes"_s, u"Mail"_s }));
    EXPECT_TRUE(taken.remarks.isEmpty());
}

TEST(ZLImportPlan, OneShowOfSeveralIsTaken)
{
    const auto feed =
        sourceOf(u"<rss xmlns:psc='http://podlove.org/simple-chapters'><channel>"
                 "<item><title>One</title><psc:chapters><psc:chapter start='1' title='a'/></psc:chapters></item>"
                 "<item><title>Two</title><psc:chapters><psc:chapter start='2' title='b'/></psc:chapters></item>"
                 "</channel></rss>"_s);
    ASSERT_EQ(feed.found.lists.size(), 2);
    EXPECT_EQ(rows(ZLImportPlan::make(feed, { .item = 1 })), QStringList { u"2 1 b "_s });
}

TEST(ZLImportPlan, AHiddenChapterStaysHidden)
{
    const auto plan = ZLImportPlan::make(
        sourceOf(u"{\"duration\":9,\"chapters\":[{\"timeStamp\":1,\"title\":\"a\",\"enabled\":false}]}"_s), {});
    EXPECT_EQ(rows(plan), QStringList { u"1 0 a "_s });
}
