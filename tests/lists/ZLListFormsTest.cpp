#include "lists/ZLReadText.h"

#include <QSet>

using namespace Qt::StringLiterals;

TEST(ZLListForms, NamesAreUniqueAndEachFormIsReadOrWritten)
{
    QSet<QString> names;
    for (const ZLListForm& form : ZLListForms::all()) {
        names.insert(form.name);
        EXPECT_TRUE(form.isRead() || form.isWritten()) << form.name.data();
        EXPECT_EQ(form.isRead(), form.recognises != nullptr) << form.name.data();
    }
    EXPECT_EQ(names.size(), ZLListForms::all().size());
}

TEST(ZLListForms, WrittenFormsStandInTheOrderOfTheMenu)
{
    QStringList names;
    for (const ZLListForm& form : ZLListForms::written())
        names.append(form.name);
    EXPECT_EQ(names,
        (QStringList { u"Podcast Chapters"_s, u"Audacity Labels"_s, u"REAPER Markers"_s, u"mp4chaps"_s, u"ffmetadata"_s,
            u"Matroska Chapters"_s, u"WebVTT Chapters"_s, u"CUE Sheet"_s, u"Show Notes"_s }));
}

TEST(ZLListForms, AListThatTwoFormsReadOtherwiseSaysWhichItTook)
{
    // As text of mp4chaps the link belongs to the title's line; a simple list takes it as well.
    EXPECT_TRUE(readText(u"00:00:00.000 Welcome\n"_s).remarks.isEmpty());
    const ZLReadLists read = readText(u"00:00:00.000 Welcome\nThe end 12:30\n"_s);
    EXPECT_EQ(read.formName, u"mp4chaps"_s);
    ASSERT_EQ(read.remarks.size(), 1);
    EXPECT_TRUE(read.remarks.constFirst().text.contains(u"Simple List"_s));
}

TEST(ZLListForms, AFormThatCannotBeAnotherIsTakenWithoutAWord)
{
    for (const QString& text : { u"WEBVTT\n\n00:00.000 --> 00:01.000\nWelcome\n"_s,
             u"FILE \"a.wav\" WAVE\n  TRACK 01 AUDIO\n    INDEX 01 00:00:00\n"_s,
             u";FFMETADATA1\n[CHAPTER]\nTIMEBASE=1/1\nSTART=0\nEND=1\ntitle=At 1:00\n"_s })
        EXPECT_TRUE(readText(text).remarks.isEmpty()) << qPrintable(text);
}

TEST(ZLListForms, AGuessedEncodingIsTold)
{
    const auto source = ZLListSource::fromBytes("00:00 Gr\xFC\xDF"
                                                "e\n");
    const auto read = ZLListForms::read(source.value());
    ASSERT_TRUE(read.isOk());
    ASSERT_EQ(read.value().remarks.size(), 1);
    EXPECT_TRUE(read.value().remarks.constFirst().text.contains(u"Latin-1"_s));
}

TEST(ZLListForms, BrokenJsonSaysSo)
{
    EXPECT_TRUE(refusalOf(u"{\"version\":\"1.2.0\",\"chapters\":[{\"startTime\":0,}]"_s).contains(u"JSON"_s));
}

TEST(ZLListForms, AListWithoutEndIsRefused)
{
    QString lines;
    for (qsizetype i = 0; i <= ZLListForms::MostChapters; ++i)
        lines += u"0:00 a\n"_s;
    EXPECT_TRUE(refusalOf(lines).contains(u"100000"_s)) << qPrintable(refusalOf(lines));
}

TEST(ZLListForms, ALineThatWasNotUnderstoodIsNamedByItsBeginning)
{
    const ZLReadLists read = readText(u"0:00 a\n  "_s + u"🎙"_s.repeated(40) + u"\nx\x1By\n"_s);
    ASSERT_EQ(read.lists.at(0).remarks.size(), 2);
    EXPECT_EQ(read.lists.at(0).remarks.at(0).text, u"“"_s + u"🎙"_s.repeated(30) + u"…” was not understood."_s);
    EXPECT_EQ(read.lists.at(0).remarks.at(1).text, u"“x y” was not understood."_s);
}

TEST(ZLListForms, RemarksAreBounded)
{
    const ZLReadLists read = readText(u"0:00 a\n"_s + u"x\n"_s.repeated(500'000));
    EXPECT_LT(read.lists.at(0).remarks.size(), 2000);
}
