// What a form's writer wrote, its reader reads, for thousands of lists that the form can hold.
#include "lists/ZLListText.h"
#include "lists/ZLListTime.h"
#include "lists/ZLRandomLists.h"
#include "lists/ZLReadText.h"

using namespace Qt::StringLiterals;

namespace {

QList<ZLListForm> formsBothWays()
{
    QList<ZLListForm> forms = ZLListForms::written();
    forms.removeIf([](const ZLListForm& form) { return !form.isRead(); });
    return forms;
}

QList<ZLListedChapter> writtenAndRead(const ZLListForm& form, const ZLListToWrite& list)
{
    const auto source = ZLListSource::fromBytes(ZLListForms::write(form, list));
    EXPECT_TRUE(source.isOk());
    EXPECT_TRUE(list.chapters.isEmpty() || form.recognises(source.value()));
    auto lists = form.read(source.value());
    EXPECT_TRUE(lists.isOk()) << qPrintable(lists.error().message);
    return lists ? lists.value().constFirst().chapters : QList<ZLListedChapter> {};
}

}

TEST(ZLListRoundTrip, WhatAFormCanHoldComesBack)
{
    constexpr int listsEach = 2000;
    ASSERT_EQ(formsBothWays().size(), 8);
    for (const ZLListForm& form : formsBothWays()) {
        ZLRandomLists lists(form);
        for (int i = 0; i < listsEach; ++i) {
            const ZLListToWrite list = lists.next();
            const QList<ZLListedChapter> read = writtenAndRead(form, list);
            ASSERT_EQ(read.size(), list.chapters.size()) << form.name.data() << " " << i;
            for (qsizetype row = 0; row < read.size(); ++row) {
                EXPECT_EQ(read.at(row).title, list.chapters.at(row).title) << form.name.data();
                EXPECT_EQ(read.at(row).link, list.chapters.at(row).link) << form.name.data();
                EXPECT_EQ(ZLListTime::units(read.at(row).start, form.unitsPerSecond),
                    ZLListTime::units(list.chapters.at(row).start, form.unitsPerSecond))
                    << form.name.data() << " " << list.chapters.at(row).start;
            }
        }
    }
}

TEST(ZLListRoundTrip, WhatAFormCannotHoldIsReplacedAndTheRestComesBack)
{
    const ZLListedChapter odd { 1.0, u"a\nb\rc\x0b\"d"_s + QChar(0) + u'e', u"https://a.example/"_s };
    for (const ZLListForm& form : formsBothWays()) {
        const auto read = writtenAndRead(form, { .chapters = { odd, { 2.0, u"next"_s } } });
        ASSERT_EQ(read.size(), 2) << form.name.data();
        EXPECT_EQ(read.at(0).title, ZLListText::fitting(odd.title, form.limits)) << form.name.data();
        EXPECT_EQ(read.at(0).link.isEmpty(), form.limits.testFlag(ZLListLimit::Links)) << form.name.data();
        EXPECT_EQ(read.at(1).title, u"next"_s) << form.name.data();
    }
}

TEST(ZLListRoundTrip, HalfACharacterBecomesAReplacementAndSpoilsNothing)
{
    for (const ZLListForm& form : formsBothWays()) {
        const auto read =
            writtenAndRead(form, { .chapters = { { 0.0, u"a"_s + QChar(0xD83C) + u'b' }, { 1.0, u"🎙"_s } } });
        ASSERT_EQ(read.size(), 2) << form.name.data();
        EXPECT_EQ(read.at(0).title, u"a\uFFFDb"_s) << form.name.data();
        EXPECT_EQ(read.at(1).title, u"🎙"_s) << form.name.data();
    }
}

TEST(ZLListRoundTrip, AChapterBeforeTheBeginningIsLeftOut)
{
    for (const ZLListForm& form : formsBothWays()) {
        const auto read = writtenAndRead(form, { .chapters = { { -1.0, u"early"_s }, { 0.0, u"first"_s } } });
        ASSERT_EQ(read.size(), 1) << form.name.data();
        EXPECT_EQ(read.constFirst().title, u"first"_s);
    }
}

TEST(ZLListRoundTrip, ACueSheetHoldsNinetyNineTracks)
{
    ZLListToWrite list;
    for (int i = 0; i < 120; ++i)
        list.chapters.append({ double(i), QString::number(i) });
    EXPECT_EQ(writtenAndRead(formNamed("CUE Sheet"_L1), list).size(), 99);
    EXPECT_EQ(writtenAndRead(formNamed("WebVTT Chapters"_L1), list).size(), 120);
}
