#include "ZLFileCommandsFixture.h"

#include "document/saving/ZLDocumentLock.h"
#include "export/lists/ZLListExporter.h"

class ZLImportCommandTest : public ZLFileCommandsFixture {
protected:
    QString list(const QByteArray& bytes)
    {
        const QString path = at(u"list.txt"_s);
        EXPECT_TRUE(ZLAtomicFile::write(path, bytes).isOk());
        return path;
    }

    ZLDocumentContents documentAt(const QString& path) const
    {
        const auto contents = ZLDocumentFile::decode(contentsOf(path));
        EXPECT_TRUE(contents.isOk());
        return contents ? contents.value() : ZLDocumentContents {};
    }

    QStringList chaptersAt(const QString& path) const
    {
        QStringList rows;
        for (const QVariant& stored : documentAt(path).chapters) {
            const ZLChapter chapter(stored.toMap());
            rows.append(u"%1 %2"_s.arg(chapter.timeStamp()).arg(chapter.title()));
        }
        return rows;
    }

    QStringList import(const QString& output, const QString& file) const
    {
        return { u"import"_s, u"--output"_s, output, file };
    }

    static inline const QByteArray feed =
        "<rss xmlns:psc='http://podlove.org/simple-chapters'><channel>"
        "<item><title>One</title><psc:chapters><psc:chapter start='1' title='a'/></psc:chapters></item>"
        "<item><title>Two</title><psc:chapters><psc:chapter start='2' title='b'/></psc:chapters></item>"
        "</channel></rss>";
};

TEST_F(ZLImportCommandTest, MakesADocumentAndTellsWhatWasNotUnderstood)
{
    const QString output = at(u"new.zelta"_s);
    EXPECT_EQ(run(import(output, list("1:00 News\nodd\n0:00 Welcome\n"))), 0);
    EXPECT_EQ(m_out, u"Chapters read as Simple List: 2.\n"_s);
    EXPECT_EQ(m_err, u"zelta: %1: Line 2: “odd” was not understood.\n"_s.arg(at(u"list.txt"_s)));
    EXPECT_EQ(chaptersAt(output), (QStringList { u"0 Welcome"_s, u"60 News"_s }));
}

TEST_F(ZLImportCommandTest, AShiftedAudioFileKeepsItsLengthInStep)
{
    const QString output = at(u"new.zelta"_s);
    EXPECT_EQ(run(import(output, QStringLiteral(ZELTA_AUDIO_FILE))), 0) << qPrintable(m_err);
    const ZLDocumentContents plain = documentAt(output);
    EXPECT_GT(plain.duration, 0.0);
    const QString shifted = at(u"shifted.zelta"_s);
    EXPECT_EQ(run(import(shifted, QStringLiteral(ZELTA_AUDIO_FILE)) + QStringList { u"--shift"_s, u"10"_s }), 0);
    EXPECT_DOUBLE_EQ(documentAt(shifted).duration, plain.duration + 10);
    EXPECT_EQ(documentAt(shifted).chapters.size(), plain.chapters.size());
}

TEST_F(ZLImportCommandTest, AnExistingFileIsRefusedUnlessItIsAddedTo)
{
    store({ storedChapter(30, u"Mine"_s) }, 100, { storedChapter(0, u"Prepared"_s) });
    const QStringList command = import(m_file, list("0:10 One\n0:50 Two\n"));
    expectFailure(1, command);
    EXPECT_TRUE(m_err.contains(u"--add"_s)) << qPrintable(m_err);
    EXPECT_EQ(chaptersAt(m_file), QStringList { u"30 Mine"_s });

    EXPECT_EQ(run(command + QStringList { u"--add"_s }), 0);
    EXPECT_EQ(chaptersAt(m_file), (QStringList { u"10 One"_s, u"30 Mine"_s, u"50 Two"_s }));
    EXPECT_EQ(documentAt(m_file).duration, 100.0);
    EXPECT_EQ(documentAt(m_file).templates.size(), 1);
}

TEST_F(ZLImportCommandTest, ADocumentThatIsOpenIsNotAddedTo)
{
    store({ storedChapter(30, u"Mine"_s) });
    const ZLDocumentLock open(m_file);
    const QByteArray before = contentsOf(m_file);
    EXPECT_EQ(run(import(m_file, list("0:10 One\n")) + QStringList { u"--add"_s }), 1);
    EXPECT_EQ(contentsOf(m_file), before);
}

TEST_F(ZLImportCommandTest, AddingNeedsADocumentAndAnotherFile)
{
    const QString file = list("0:10 One\n");
    expectFailure(1, import(at(u"missing.zelta"_s), file) + QStringList { u"--add"_s });
    ASSERT_TRUE(ZLAtomicFile::write(at(u"text.zelta"_s), "no document").isOk());
    expectFailure(1, import(at(u"text.zelta"_s), file) + QStringList { u"--add"_s });
    store({ storedChapter(30, u"Mine"_s) });
    expectFailure(1, import(m_file, m_file) + QStringList { u"--add"_s });
}

TEST_F(ZLImportCommandTest, AFeedWithSeveralShowsNeedsAChoice)
{
    const QString file = list(feed);
    expectFailure(1, import(at(u"new.zelta"_s), file));
    EXPECT_TRUE(m_err.contains(u"1 One (1), 2 Two (1)"_s)) << qPrintable(m_err);
    expectFailure(1, import(at(u"new.zelta"_s), file) + QStringList { u"--item"_s, u"3"_s });
    EXPECT_EQ(run(import(at(u"new.zelta"_s), file) + QStringList { u"--item=2"_s, u"--shift=-0.5"_s }), 0);
    EXPECT_EQ(chaptersAt(at(u"new.zelta"_s)), QStringList { u"1.5 b"_s });
}

TEST_F(ZLImportCommandTest, RefusesWrongUsage)
{
    const QString file = list("0:10 One\n");
    expectFailure(2, { u"import"_s, file });
    expectFailure(2, { u"import"_s, u"--output"_s, at(u"new.zelta"_s) });
    for (const QString& option : { u"--item=0"_s, u"--item=x"_s, u"--shift=x"_s, u"--shift=inf"_s })
        expectFailure(2, import(at(u"new.zelta"_s), file) + QStringList { option });
    expectFailure(1, import(at(u"new.zelta"_s), at(u"missing.txt"_s)));
    expectFailure(1, import(at(u"no/such/folder/new.zelta"_s), file));
}

TEST_F(ZLImportCommandTest, ShowReadsEveryForm)
{
    EXPECT_EQ(run({ u"show"_s, list("0:10 One <https://a.example/>\n") }), 0);
    EXPECT_TRUE(m_out.contains(u"00:00:10.000"_s) && m_out.contains(u"https://a.example/"_s)) << qPrintable(m_out);
    EXPECT_EQ(run({ u"show"_s, list(feed), u"--item"_s, u"1"_s }), 0);
    EXPECT_TRUE(m_out.contains(u"00:00:01.000"_s)) << qPrintable(m_out);
    expectFailure(1, { u"show"_s, list("no list\n") });
}

TEST_F(ZLImportCommandTest, WhatWasImportedComesBackFromAnExport)
{
    m_exporterClasses += ZLListExporter::allForms();
    store({ storedChapter(0, u"Welcome"_s), storedChapter(61, u"News"_s) }, 100);
    for (const ZLExporterClass& exporterClass : ZLListExporter::allForms()) {
        const QString out = at(u"out"_s);
        const QString again = at(u"again.zelta"_s);
        QFile::remove(again);
        ASSERT_EQ(run(exportTo(out, exporterClass.format().name)), 0) << qPrintable(m_err);
        ASSERT_EQ(run(import(again, out)), 0) << qPrintable(m_err);
        EXPECT_EQ(chaptersAt(again), (QStringList { u"0 Welcome"_s, u"61 News"_s }))
            << qPrintable(exporterClass.format().name);
    }
}

TEST_F(ZLImportCommandTest, APatternIsForShowNotesOnly)
{
    m_exporterClasses += ZLListExporter::allForms();
    store({ storedChapter(61, u"News"_s, u"https://a.example/"_s) });
    const QStringList pattern { u"--pattern"_s, u"{time} – {title}"_s };
    EXPECT_EQ(run(exportTo(at(u"out"_s), u"show notes"_s) + pattern), 0) << qPrintable(m_err);
    EXPECT_EQ(contentsOf(at(u"out"_s)), u"1:01 – News\n"_s.toUtf8());
    expectFailure(2, exportTo(at(u"out2"_s), u"YouTube"_s) + pattern);
    expectFailure(2, exportTo(at(u"out2"_s), u"Show Notes"_s) + QStringList { u"--pattern"_s, QString() });
}

TEST_F(ZLImportCommandTest, AdviceComesBeforeAFurtherFormatIsWritten)
{
    m_exporterClasses += ZLListExporter::allForms();
    store({ storedChapter(61, u"News"_s, u"https://a.example/"_s) });
    EXPECT_EQ(run(exportTo(at(u"out"_s), u"Audacity Labels"_s)), 0);
    EXPECT_EQ(m_err, u"zelta: This format has no links: the link is left out in chapter 1.\n"_s);
}
