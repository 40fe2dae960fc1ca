#include "delivery/ZLDeliveryDraft.h"

#include "ZLWaveFile.h"

#include "platform/ZLStateFolder.h"
#include "platform/media/file/ZLMediaFile.h"
#include "support/ZLDocumentFixture.h"

#include <QDir>
#include <QFile>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <future>

using namespace Qt::StringLiterals;
using State = ZLDeliveryTarget::State;

class ZLDeliveryDraftTest : public ZLDocumentFixture {
protected:
    QString makeFile(const QString& name, int seconds = 60) const
    {
        const QString path = m_folder.filePath(name);
        EXPECT_TRUE(writeWaveFile(path, seconds));
        return path;
    }

    /// Waits until no file is being read any more.
    void choose(const QStringList& paths)
    {
        m_draft.setPaths(paths);
        const auto isReading = [this](qsizetype index) { return m_draft.targets().at(index).state == State::Reading; };
        for (qsizetype index = 0; index < m_draft.targets().size(); ++index) {
            while (isReading(index) && m_changes.wait()) { }
        }
    }

    void startAndMark(double seconds)
    {
        m_document.recordButtonPressed();
        advance(seconds);
        m_document.addNewBlankChapter();
    }

    void write()
    {
        m_draft.write();
        ASSERT_TRUE(m_draft.isWriting());
        ASSERT_TRUE(m_ends.wait());
    }

    [[nodiscard]] const ZLDeliveryTarget& target(qsizetype index = 0) const { return m_draft.targets().at(index); }

    QTemporaryDir m_folder;
    ZLDeliveryDraft m_draft { m_document };
    QSignalSpy m_changes { &m_draft, &ZLDeliveryDraft::didChange };
    QSignalSpy m_ends { &m_draft, &ZLDeliveryDraft::didEndWriting };
};

TEST_F(ZLDeliveryDraftTest, WhatWillBeWrittenFollowsTheDocument)
{
    addChapterAt(1.0, u"Eins"_s);
    choose({ makeFile(u"a.wav"_s) });
    ASSERT_TRUE(target().plan);
    EXPECT_EQ(target().state, State::Ready);
    EXPECT_EQ(target().plan->toCome.size(), 1);
    startAndMark(2.0);
    EXPECT_TRUE(m_changes.wait());
    EXPECT_EQ(target().plan->toCome.size(), 2);
    EXPECT_TRUE(m_document.isRecording());
    history().undo();
    EXPECT_TRUE(m_changes.wait());
    EXPECT_EQ(target().plan->toCome.size(), 1);
}

TEST_F(ZLDeliveryDraftTest, TheShiftMovesWhatWillBeWritten)
{
    addChapterAt(1.0, u"Eins"_s);
    choose({ makeFile(u"a.wav"_s) });
    m_draft.setShift(30.5);
    EXPECT_EQ(target().plan->toCome.at(0).start, 31'500);
    m_draft.setShift(-2.0);
    EXPECT_TRUE(target().plan->toCome.isEmpty());
    EXPECT_EQ(target().plan->findings.size(), 1);
    EXPECT_FALSE(m_draft.canWrite());
}

TEST_F(ZLDeliveryDraftTest, EachFileHasItsOutcomeAndAFailureStopsNone)
{
    addChapterAt(1.0, u"Eins"_s);
    const QString other = m_folder.filePath(u"b.txt"_s);
    ASSERT_TRUE(ZLAtomicFile::write(other, "no audio"));
    choose({ makeFile(u"a.wav"_s), other, makeFile(u"c.wav"_s), makeFile(u"d.wav"_s) });
    EXPECT_EQ(target(1).state, State::Unreadable);
    ASSERT_TRUE(QFile::remove(target(2).path));
    write();
    EXPECT_EQ(target(0).state, State::Written);
    EXPECT_EQ(target(0).message, u"1 of 1 chapters are in a.wav"_s);
    EXPECT_TRUE(target(1).message.startsWith(other)) << "it says why";
    EXPECT_TRUE(target(2).message.startsWith(target(2).path));
    EXPECT_EQ(target(3).state, State::Written);
    EXPECT_FALSE(m_draft.isWriting());
    while (target(0).plan->now.chapters.isEmpty() && m_changes.wait()) { }
    EXPECT_EQ(target(0).plan->now.chapters.size(), 1) << "what is in the file now";
    EXPECT_EQ(target(0).state, State::Written);
}

TEST_F(ZLDeliveryDraftTest, AnOutcomeGoesWhenTheChaptersAreOthers)
{
    addChapterAt(1.0, u"Eins"_s);
    choose({ makeFile(u"a.wav"_s) });
    write();
    addChapterAt(2.0, u"Zwei"_s);
    while (target().state == State::Written && m_changes.wait()) { }
    EXPECT_EQ(target().state, State::Ready);
    EXPECT_TRUE(target().message.isEmpty());
}

TEST_F(ZLDeliveryDraftTest, AFileThatAnotherProgramChangedIsReadAgainInsteadOfWritten)
{
    addChapterAt(1.0, u"Eins"_s);
    const QString path = makeFile(u"a.wav"_s);
    choose({ path });
    makeFile(u"a.wav"_s, 30);
    write();
    EXPECT_EQ(target().state, State::Failed);
    EXPECT_TRUE(target().message.startsWith(path + u": Another program changed"_s)) << qPrintable(target().message);
    EXPECT_TRUE(ZLMediaFile::read(path).value().chapters.isEmpty());
    while (target().plan->now.length != 30'000 && m_changes.wait()) { }
    write();
    EXPECT_EQ(target().state, State::Written);
}

TEST_F(ZLDeliveryDraftTest, AFileThatCameBackIsReadByItself)
{
    addChapterAt(1.0, u"Eins"_s);
    const QString path = m_folder.filePath(u"a.wav"_s);
    choose({ path });
    ASSERT_EQ(target().state, State::Unreadable);
    makeFile(u"a.wav"_s);
    ASSERT_TRUE(QTest::qWaitFor([this] { return target().state == State::Ready; }, 30'000));
    EXPECT_TRUE(target().message.isEmpty()) << "the failure is over";
    EXPECT_EQ(target().plan->toCome.size(), 1);
    write();
    EXPECT_EQ(target().state, State::Written);
}

TEST_F(ZLDeliveryDraftTest, AFileThatWasLostWhileItWasWrittenIsReadWhenItIsBack)
{
    addChapterAt(1.0, u"Eins"_s);
    choose({ makeFile(u"a.wav"_s) });
    ASSERT_TRUE(QFile::rename(target().path, m_folder.filePath(u"away.wav"_s)));
    write();
    while (target().state != State::Unreadable && m_changes.wait()) { }
    ASSERT_EQ(target().state, State::Unreadable);
    ASSERT_TRUE(QFile::rename(m_folder.filePath(u"away.wav"_s), target().path));
    ASSERT_TRUE(QTest::qWaitFor([this] { return target().state == State::Ready; }, 30'000));
    EXPECT_TRUE(m_draft.canWrite());
}

TEST_F(ZLDeliveryDraftTest, NothingIsWrittenOverTheFilesOfTheProgram)
{
    addChapterAt(1.0, u"Eins"_s);
    const QString state = ZLStateFolder::path();
    ASSERT_TRUE(QDir().mkpath(state));
    const QString path = state + u"/kept.wav"_s;
    ASSERT_TRUE(writeWaveFile(path, 60));
    choose({ path });
    write();
    EXPECT_EQ(target().state, State::Failed);
    EXPECT_TRUE(ZLMediaFile::read(path).value().chapters.isEmpty());
}

TEST_F(ZLDeliveryDraftTest, WhatIsCancelledStaysAsItWas)
{
    addChapterAt(1.0, u"Eins"_s);
    choose({ makeFile(u"a.wav"_s), makeFile(u"b.wav"_s) });
    m_draft.write();
    m_draft.setPaths({});
    EXPECT_EQ(m_draft.paths().size(), 2) << "files that are being written stay";
    m_draft.cancel();
    ASSERT_TRUE(m_ends.wait());
    EXPECT_EQ(target(1).state, State::Failed);
    EXPECT_TRUE(ZLMediaFile::read(target(1).path).value().chapters.isEmpty());
}

TEST_F(ZLDeliveryDraftTest, AFileIsTakenOnceAndADiskThatHangsHoldsNobodyUp)
{
    const auto mayAnswer = std::make_shared<std::promise<void>>();
    const auto answer = mayAnswer->get_future().share();
    {
        ZLDeliveryDraft draft(m_document, [answer](const QString& path) {
            answer.wait();
            return ZLMediaFile::read(path);
        });
        const QString path = makeFile(u"a.wav"_s);
        draft.setPaths({ path, m_folder.filePath(u"./a.wav"_s) });
        EXPECT_EQ(draft.paths(), QStringList { path });
        EXPECT_EQ(draft.targets().first().state, State::Reading);
        EXPECT_FALSE(draft.canWrite());
    }
    mayAnswer->set_value();
}

TEST_F(ZLDeliveryDraftTest, WhatArrivesAfterTheDocumentWentIsDropped)
{
    auto document = std::make_unique<ZLChapterDocument>(environment());
    ZLDeliveryDraft draft(*document);
    draft.setPaths({ makeFile(u"a.wav"_s) });
    document.reset();
    EXPECT_TRUE(draft.targets().isEmpty());
    // The file is read by then.
    choose({ m_folder.filePath(u"a.wav"_s) });
    EXPECT_TRUE(draft.targets().isEmpty());
}

TEST_F(ZLDeliveryDraftTest, ImportsTheChaptersOfAFileInOneStep)
{
    addChapterAt(1.0, u"Eins"_s);
    addChapterAt(2.0, u"Zwei"_s);
    choose({ makeFile(u"a.wav"_s) });
    m_draft.setShift(10.0);
    write();
    while (target().plan->now.chapters.isEmpty() && m_changes.wait()) { }
    m_document.deleteLastChapter();
    m_document.deleteLastChapter();
    EXPECT_EQ(m_draft.importChaptersOf(0), 2);
    EXPECT_EQ(times(), (QList<double> { 1.0, 2.0 })) << "without the shift that they have in the file";
    EXPECT_EQ(titles(), (QStringList { u"Eins"_s, u"Zwei"_s }));
    history().undo();
    EXPECT_TRUE(times().isEmpty());
    EXPECT_EQ(m_draft.importChaptersOf(7), 0);
}
