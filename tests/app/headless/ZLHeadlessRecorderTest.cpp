#include "app/headless/ZLHeadlessRecorderFixture.h"
#include "platform/ZLBoundedFile.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <csignal>

using namespace Qt::StringLiterals;

class ZLHeadlessRecorderTest : public ZLHeadlessRecorderFixture { };

TEST_F(ZLHeadlessRecorderTest, AMissingFileIsMadeAndTold)
{
    ASSERT_TRUE(recorder->start(path, ZLHeadlessStart::Paused));
    EXPECT_TRUE(QFile::exists(path));
    EXPECT_EQ(output.first(), u"new document: "_s + path);
    EXPECT_TRUE(output.contains(u"document: "_s + path));
    EXPECT_TRUE(output.join(u'\n').contains(u"help"_s)) << "how to use it";
    EXPECT_FALSE(controller->currentOrLastDocument()->isRecording());
}

TEST_F(ZLHeadlessRecorderTest, AMissingFileIsMadeOnlyWhereItMayBe)
{
    const ZLStatus started = recorder->start(path, ZLHeadlessStart::Recording, ZLMissingFile::Fail);
    ASSERT_FALSE(started);
    EXPECT_TRUE(started.error().message.startsWith(path));
    EXPECT_FALSE(QFile::exists(path));
}

TEST_F(ZLHeadlessRecorderTest, AFileThatIsThereIsNotNew)
{
    ASSERT_TRUE(ZLAtomicFile::write(path, ZLDocumentFile::encode({})));
    ASSERT_TRUE(recorder->start(path, ZLHeadlessStart::Paused));
    EXPECT_EQ(output.first(), u"document: "_s + path);
}

TEST_F(ZLHeadlessRecorderTest, RecordStartsTheClockAtOnce)
{
    start(ZLHeadlessStart::Recording);
    EXPECT_TRUE(document->isRecording());
}

TEST_F(ZLHeadlessRecorderTest, ASleepOfTheComputerIsToldAndItsTimeCanBeAdded)
{
    start(ZLHeadlessStart::Recording);
    EXPECT_EQ(answerTo(u"addsleep"_s), (QStringList { u"the computer did not sleep"_s }));
    bootClock->seconds += 720.0;
    errors.clear();
    document->noticeSleep();
    ASSERT_EQ(errors.size(), 1);
    EXPECT_TRUE(errors.first().startsWith("The computer slept for 12 min from "_L1));
    EXPECT_TRUE(errors.first().contains("\"addsleep\""_L1));
    EXPECT_EQ(answerTo(u"addsleep"_s), (QStringList { u"the clock reads 00:12:00.0"_s }));
    EXPECT_EQ(document->currentDuration(), 720.0);
    EXPECT_EQ(answerTo(u"leavesleep"_s), (QStringList { u"the computer did not sleep"_s }));
}

TEST_F(ZLHeadlessRecorderTest, TheTimeOfASleepCanBeLeftOut)
{
    start(ZLHeadlessStart::Recording);
    bootClock->seconds += 720.0;
    document->noticeSleep();
    EXPECT_EQ(answerTo(u"leavesleep"_s), (QStringList { u"the clock reads 00:00:00.0"_s }));
    EXPECT_EQ(answerTo(u"addsleep"_s), (QStringList { u"the computer did not sleep"_s }));
}

TEST_F(ZLHeadlessRecorderTest, WithoutAFileItIsWhatWasOpenBeforeOrANewDocument)
{
    ASSERT_TRUE(recorder->start(std::nullopt, ZLHeadlessStart::Recording));
    EXPECT_TRUE(output.first().contains(u"Untitled"_s));
    EXPECT_TRUE(controller->currentOrLastDocument()->isRecording());
}

TEST_F(ZLHeadlessRecorderTest, AFileThatCannotBeOpenedIsAnError)
{
    ASSERT_TRUE(ZLAtomicFile::write(path, "no chapters"));
    const ZLStatus started = recorder->start(path, ZLHeadlessStart::Recording);
    ASSERT_FALSE(started);
    EXPECT_TRUE(started.error().message.startsWith(path));
    EXPECT_TRUE(controller->documents().isEmpty());
}

TEST_F(ZLHeadlessRecorderTest, AShowIsRecordedByCommands)
{
    start();
    EXPECT_EQ(answerTo(u"toggleRecording"_s), QStringList { u"recording from 00:00:00.0"_s });
    clock->seconds += 5.25;
    EXPECT_EQ(answerTo(u"newChapter"_s), QStringList { u"chapter 1 at 00:00:05.250 \"\""_s });
    EXPECT_EQ(answerTo(u"title  News & weather "_s), QStringList { u"chapter 1 at 00:00:05.250 \"News & weather\""_s });
    clock->seconds += 60.0;
    EXPECT_EQ(answerTo(u"newChapter"_s), QStringList { u"chapter 2 at 00:01:05.250 \"\""_s });
    EXPECT_EQ(answerTo(u"selectPreviousChapter"_s),
        QStringList { u"selected chapter 1 at 00:00:05.250 \"News & weather\""_s });
    EXPECT_EQ(answerTo(u"selectNextChapter"_s), QStringList { u"selected chapter 2 at 00:01:05.250 \"\""_s });
    EXPECT_EQ(answerTo(u"removeChapter"_s), QStringList { u"deleted chapter 2 at 00:01:05.250 \"\""_s });
    EXPECT_EQ(
        answerTo(u"removeLastChapter"_s), QStringList { u"deleted chapter 1 at 00:00:05.250 \"News & weather\""_s });
    EXPECT_EQ(answerTo(u"toggleRecording"_s), QStringList { u"paused at 00:01:05.2"_s });
    EXPECT_EQ(errors, QStringList());
}

TEST_F(ZLHeadlessRecorderTest, ACommandWithoutEffectSaysWhy)
{
    start();
    EXPECT_EQ(answerTo(u"newChapter"_s), QStringList { u"did nothing: the clock is not running"_s });
    for (const char* command :
        { "removeChapter", "removeLastChapter", "selectPreviousChapter", "selectNextChapter", "title News" })
        EXPECT_EQ(answerTo(QString::fromLatin1(command)).size(), 1) << command;
    EXPECT_EQ(document->chapterManager().count(), 0);
    EXPECT_FALSE(document->undoManager().canUndo());
}

TEST_F(ZLHeadlessRecorderTest, AnUnknownCommandChangesNothing)
{
    start();
    EXPECT_EQ(answerTo(u"togglerecording now"_s), QStringList());
    ASSERT_EQ(errors.size(), 1);
    EXPECT_TRUE(errors.first().contains(u"togglerecording"_s));
    EXPECT_FALSE(document->isRecording());
    EXPECT_EQ(answerTo(u"   "_s), QStringList());
    EXPECT_EQ(errors.size(), 1);
}

TEST_F(ZLHeadlessRecorderTest, WhatComesByAnotherWayIsToldToo)
{
    start(ZLHeadlessStart::Recording);
    output.clear();
    document->addChapterButtonPressed();
    document->addChapterButtonPressed();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::MetaCall);
    EXPECT_EQ(output, (QStringList { u"chapter 1 at 00:00:00.000 \"\""_s, u"chapter 2 at 00:00:00.000 \"\""_s }));
}

TEST_F(ZLHeadlessRecorderTest, ATitleStaysInItsLine)
{
    start(ZLHeadlessStart::Recording);
    answerTo(u"newChapter"_s);
    EXPECT_EQ(answerTo(u"title a\rb\nc"_s), QStringList { u"chapter 1 at 00:00:00.000 \"a b c\""_s });
}

TEST_F(ZLHeadlessRecorderTest, StatusAndHelpTellEverything)
{
    start(ZLHeadlessStart::Recording);
    answerTo(u"newChapter"_s);
    clock->seconds += 65.3;
    EXPECT_TRUE(controller->saveAllNow().isEmpty());
    EXPECT_EQ(answerTo(u"status"_s),
        (QStringList { u"document: "_s + path, u"clock: recording, 00:01:05.2"_s, u"chapters: 1"_s,
            u"selected: chapter 1 at 00:00:00.000 \"\""_s, u"file: saved"_s }));
    const QString help = answerTo(u"help"_s).join(u'\n');
    for (const char* command : { "toggleRecording", "newChapter", "removeChapter", "removeLastChapter",
             "selectPreviousChapter", "selectNextChapter", "title", "status", "help", "quit" })
        EXPECT_TRUE(help.contains(QString::fromLatin1(command))) << command;
}

TEST_F(ZLHeadlessRecorderTest, QuitIsRefusedWhileTheClockRuns)
{
    start(ZLHeadlessStart::Recording);
    answerTo(u"quit"_s);
    EXPECT_EQ(exitStatus, std::nullopt);
    ASSERT_EQ(errors.size(), 1);
    EXPECT_TRUE(errors.first().contains(u"toggleRecording"_s));
    EXPECT_TRUE(document->isRecording());
    answerTo(u"toggleRecording"_s);
    answerTo(u"quit"_s);
    EXPECT_EQ(exitStatus, ZLExitStatus::Done);
}

TEST_F(ZLHeadlessRecorderTest, ASaveThatFailsIsToldAndEndsWithAFailure)
{
    ASSERT_TRUE(QDir().mkpath(temporary.filePath(u"stick"_s)));
    path = temporary.filePath(u"stick/show.zelta"_s);
    start(ZLHeadlessStart::Recording);
    ASSERT_TRUE(QDir(temporary.filePath(u"stick"_s)).removeRecursively());
    answerTo(u"newChapter"_s);
    ZLDocumentSaver* saver = controller->saverOf(document);
    EXPECT_FALSE(saver->saveNow());
    ASSERT_EQ(errors.size(), 1);
    EXPECT_TRUE(errors.first().contains(path)) << qPrintable(errors.first());
    EXPECT_FALSE(saver->saveNow());
    EXPECT_EQ(errors.size(), 1) << "once is enough";
    recorder->terminate();
    EXPECT_EQ(exitStatus, ZLExitStatus::Failed);
    ASSERT_TRUE(QDir().mkpath(temporary.filePath(u"stick"_s)));
    EXPECT_TRUE(saver->saveNow());
    EXPECT_EQ(errors.last(), u"Saved again: %1"_s.arg(path));
}

TEST_F(ZLHeadlessRecorderTest, EachDocumentTellsForItselfWhetherItIsSaved)
{
    ASSERT_TRUE(QDir().mkpath(temporary.filePath(u"stick"_s)));
    path = temporary.filePath(u"stick/show.zelta"_s);
    start();
    ZLChapterDocument* other = controller->newDocument();
    ASSERT_TRUE(savedAs(*controller->saverOf(other), temporary.filePath(u"other.zelta"_s)));
    ASSERT_TRUE(QDir(temporary.filePath(u"stick"_s)).removeRecursively());
    const auto mark = [](ZLChapterDocument& marked) { marked.addChapter(std::make_shared<ZLChapter>()); };
    mark(*document);
    EXPECT_FALSE(controller->saverOf(document)->saveNow());
    ASSERT_EQ(errors.size(), 1);
    mark(*other);
    EXPECT_TRUE(controller->saverOf(other)->saveNow());
    EXPECT_EQ(errors.size(), 1) << "the other one was never in danger: " << qPrintable(errors.last());
    EXPECT_TRUE(answerTo(u"status"_s).contains(u"also open: %1, saved"_s.arg(temporary.filePath(u"other.zelta"_s))))
        << qPrintable(output.join(u'\n'));
    ASSERT_TRUE(QDir().mkpath(temporary.filePath(u"stick"_s)));
    EXPECT_TRUE(controller->saverOf(document)->saveNow());
    EXPECT_EQ(errors.mid(1), QStringList { u"Saved again: %1"_s.arg(path) });
}

/// The recorder in a process of its own, with real streams and signals.
class ZLHeadlessRecorderProcessTest : public testing::Test {
protected:
    void run(const QStringList& arguments)
    {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(u"XDG_STATE_HOME"_s, temporary.path());
        environment.insert(u"XDG_CONFIG_HOME"_s, temporary.path());
        process.setProcessEnvironment(environment);
        process.start(QStringLiteral(ZELTA_RECORDER_PROCESS), arguments);
        ASSERT_TRUE(process.waitForStarted());
    }

    /// Reads the output up to a line that begins so; that line.
    QString lineBeginning(const QString& start)
    {
        for (int line = 0; line < 10000; ++line) {
            while (!process.canReadLine()) {
                if (!process.waitForReadyRead(30000))
                    return {};
            }
            const QString text = QString::fromUtf8(process.readLine()).trimmed();
            if (text.startsWith(start))
                return text;
        }
        return {};
    }

    void waitUntilSaved()
    {
        QString line;
        for (int attempt = 0; attempt < 100000 && line != u"file: saved"_s; ++attempt) {
            process.write("status\n");
            line = lineBeginning(u"file: "_s);
            ASSERT_FALSE(line.isEmpty());
        }
    }

    ZLDocumentContents contentsOf(const QString& file) const
    {
        const auto bytes = ZLBoundedFile::read(file, ZLFileBound::Document);
        const auto decoded = ZLDocumentFile::decode(bytes ? bytes.value() : QByteArray());
        EXPECT_TRUE(decoded) << qPrintable(file);
        return decoded ? decoded.value() : ZLDocumentContents {};
    }

    QTemporaryDir temporary;
    QString path = temporary.filePath(u"show.zelta"_s);
    QProcess process;
};

TEST_F(ZLHeadlessRecorderProcessTest, TheEndOfTheInputEndsNothingAndASignalSavesTheReading)
{
    run({ u"--record"_s, path });
    process.write("title N\303\244chstes\nnonsense\nquit\nstatus");
    process.closeWriteChannel();
    EXPECT_FALSE(lineBeginning(u"file: "_s).isEmpty()) << "of the start";
    EXPECT_FALSE(lineBeginning(u"file: "_s).isEmpty()) << "of the last line, which has no end";
    ASSERT_EQ(process.state(), QProcess::Running);

    ASSERT_EQ(kill(pid_t(process.processId()), SIGTERM), 0);
    ASSERT_TRUE(process.waitForFinished());
    EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(process.exitCode(), 0);
    const QString errors = QString::fromUtf8(process.readAllStandardError());
    EXPECT_TRUE(errors.contains(u"nonsense"_s)) << qPrintable(errors);
    EXPECT_TRUE(errors.contains(u"toggleRecording first"_s)) << qPrintable(errors);
    const ZLDocumentContents contents = contentsOf(path);
    EXPECT_GT(contents.duration, 0.0);
    ASSERT_EQ(contents.chapters.size(), 1);
    EXPECT_EQ(contents.chapters.first().toMap().value(ZLChapterKey::Title).toString(), u"N\u00e4chstes"_s);
}

TEST_F(ZLHeadlessRecorderProcessTest, EverySignalThatEndsAServiceSaves)
{
    for (const int signalNumber : { SIGINT, SIGHUP }) {
        const QString file = temporary.filePath(u"signal-%1.zelta"_s.arg(signalNumber));
        run({ u"--record"_s, file });
        EXPECT_FALSE(lineBeginning(u"recording"_s).isEmpty());
        ASSERT_EQ(kill(pid_t(process.processId()), signalNumber), 0);
        ASSERT_TRUE(process.waitForFinished());
        EXPECT_EQ(process.exitStatus(), QProcess::NormalExit) << signalNumber;
        EXPECT_EQ(process.exitCode(), 0) << signalNumber;
        EXPECT_GT(contentsOf(file).duration, 0.0) << signalNumber;
    }
}

TEST_F(ZLHeadlessRecorderProcessTest, AKilledRecordingIsBackAtTheNextStart)
{
    run({ u"--record"_s });
    process.write("title News\nnewChapter\ntitle Weather\n");
    EXPECT_FALSE(lineBeginning(u"chapter 2"_s).isEmpty());
    waitUntilSaved();
    process.kill();
    ASSERT_TRUE(process.waitForFinished());

    run({});
    EXPECT_TRUE(lineBeginning(u"document: "_s).contains(u"Untitled"_s));
    EXPECT_TRUE(lineBeginning(u"clock: "_s).startsWith(u"clock: paused"_s));
    EXPECT_EQ(lineBeginning(u"chapters: "_s), u"chapters: 2"_s);
    process.write("quit\n");
    ASSERT_TRUE(process.waitForFinished());
    EXPECT_EQ(process.exitCode(), 0);
}

TEST_F(ZLHeadlessRecorderProcessTest, AReaderThatGoesAwayDoesNotEndTheRecording)
{
    run({ u"--record"_s, path });
    EXPECT_FALSE(lineBeginning(u"recording"_s).isEmpty());
    process.closeReadChannel(QProcess::StandardOutput);
    process.write("newChapter\nstatus\ntoggleRecording\nquit\n");
    ASSERT_TRUE(process.waitForFinished());
    EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(contentsOf(path).chapters.size(), 2);
}
