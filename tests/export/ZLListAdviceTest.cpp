#include "export/lists/ZLListAdvice.h"

#include "export/ZLExportCase.h"
#include "export/formats/ZLExportAdvice.h"
#include "export/lists/ZLListExporter.h"
#include "lists/forms/ZLListForms.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

ZLChapterPointer listedAt(double seconds, const QString& title, const QString& link = {})
{
    return ZLExportCase::chapter(seconds, title, link, true);
}

QStringList linesFor(const QString& name, const ZLChapterSequence& chapters, double duration = 0)
{
    for (const ZLExporterClass& exporterClass : ZLListExporter::allForms()) {
        if (exporterClass.format().name == name)
            return ZLExportAdvice::lines(exporterClass, { .chapters = chapters, .duration = duration });
    }
    ADD_FAILURE() << "no format " << qPrintable(name);
    return {};
}

QStringList allNames()
{
    QStringList names;
    for (const ZLExporterClass& exporterClass : ZLListExporter::allForms())
        names += exporterClass.format().name;
    return names;
}

/// The names of the formats that say something with `words` in it.
QStringList formatsThatSay(const QString& words, const ZLChapterSequence& chapters, double duration = 0)
{
    QStringList names;
    for (const QString& name : allNames()) {
        if (!linesFor(name, chapters, duration).filter(words).isEmpty())
            names += name;
    }
    return names;
}

}

TEST(ZLListAdvice, SaysNothingWhereAllIsWell)
{
    for (const QString& name : allNames())
        EXPECT_EQ(linesFor(name, { listedAt(0, u"Welcome"_s), listedAt(60, u"News"_s) }, 100), QStringList())
            << qPrintable(name);
}

TEST(ZLListAdvice, SaysWhereNothingWillBeWrittenOrAChapterIsLeftOut)
{
    EXPECT_EQ(formatsThatSay(u"No enabled chapters"_s, {}), allNames());
    EXPECT_EQ(formatsThatSay(u"left out: see chapter 1."_s, { listedAt(-1, u"Early"_s) }), allNames());
    EXPECT_EQ(formatsThatSay(u"no title in chapter 1"_s, { listedAt(0, u" "_s) }), allNames());
}

TEST(ZLListAdvice, PlayersAreMeantByAllButNotes)
{
    QStringList players = allNames();
    players.removeOne(u"Show Notes"_s);
    EXPECT_EQ(formatsThatSay(u"after the end"_s, { listedAt(60, u"Late"_s) }, 30), players);
    EXPECT_EQ(formatsThatSay(u"same time"_s, { listedAt(1, u"One"_s), listedAt(1, u"Two"_s) }), players);
}

TEST(ZLListAdvice, TellsWhatAFormCannotHoldExactlyWhereItsBytesDiffer)
{
    const ZLChapterSequence plain { listedAt(0, u"a b"_s) };
    const std::pair<QString, QString> texts[] { { u"a\nb"_s, u"line break"_s }, { u"a\u0001b"_s, u"control"_s },
        { u"a\"b"_s, u"double quote"_s } };
    for (const ZLListForm& form : ZLListForms::written()) {
        for (const auto& [title, words] : texts) {
            const bool isTold = !linesFor(form.name, { listedAt(0, title) }).filter(words).isEmpty();
            const QByteArray bytes = ZLListForms::write(form, { .chapters = { { 0.0, title } } });
            const QByteArray blank = ZLListForms::write(form, { .chapters = { { 0.0, u"a b"_s } } });
            const QByteArray single = ZLListForms::write(form, { .chapters = { { 0.0, u"a'b"_s } } });
            EXPECT_EQ(isTold, bytes == blank || bytes == single) << form.name.data() << qPrintable(words);
        }
    }
}

TEST(ZLListAdvice, LinksAreToldWhereTheFormHasNone)
{
    QStringList without = allNames();
    without.removeOne(u"Podcast Chapters"_s);
    without.removeOne(u"Show Notes"_s);
    EXPECT_EQ(formatsThatSay(u"no links"_s, { listedAt(0, u"a"_s, u"https://a.example/"_s) }), without);
}

TEST(ZLListAdvice, ASheetHasRoomFor99TracksAndMinutes)
{
    ZLChapterSequence chapters;
    for (int i = 0; i < 99; ++i)
        chapters.append(listedAt(i, u"a"_s));
    EXPECT_EQ(formatsThatSay(u"99"_s, chapters), QStringList());
    chapters.append(listedAt(6000, u"late"_s));
    EXPECT_EQ(formatsThatSay(u"99"_s, chapters), QStringList { u"CUE Sheet"_s });
    EXPECT_EQ(linesFor(u"CUE Sheet"_s, chapters).filter(u"chapter 100"_s).size(), 2);
}

TEST(ZLListAdvice, AngleBracketsAreToldWhereTheyLookLikeALink)
{
    EXPECT_EQ(formatsThatSay(u"misread < and >"_s, { listedAt(0, u"a <b>"_s) }), QStringList { u"mp4chaps"_s });
}
