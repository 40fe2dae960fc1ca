#pragma once

#include "document/saving/ZLDocumentSaver.h"
#include "document/saving/journal/ZLJournalReader.h"
#include "platform/ZLBoundedFile.h"
#include "support/ZLAsksSaver.h"
#include "support/ZLTemporarySettings.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <deque>

/// A document whose time, disk and worker thread are in the test's hand.
class SavingFixture : public testing::Test, protected ZLAsksSaver {
protected:
    struct SettableClock final : ZLHostClock {
        double seconds = 1000.0;
        double now() const override { return seconds; }
    };

    SavingFixture()
        : recoveryFolder(temporary.filePath(QStringLiteral("state/recovery")))
        , document(environment())
    {
        // A document has the chapters that a test gives it.
        ZLSettingsManager::setCreateNewChapterOnStart(false);
        machinery.clock = clock;
        // However busy the machine is, what a test looks for has to be there.
        machinery.journalDisk.longestHandOver = std::chrono::minutes(1);
        machinery.executor = [this](std::function<void()> task) { tasks.push_back(std::move(task)); };
        machinery.writeFile = [this](const QString& path, const QByteArray& bytes) {
            ++writeCount;
            return ZLAtomicFile::write(path, bytes);
        };
    }

    ZLDocumentEnvironment environment() const
    {
        ZLDocumentEnvironment result;
        result.hostClock = clock;
        return result;
    }

    QString filePath(const char* name) const { return temporary.filePath(QString::fromLatin1(name)); }

    std::unique_ptr<ZLDocumentSaver> untitledSaver()
    {
        return std::make_unique<ZLDocumentSaver>(document, recoveryFolder, machinery);
    }

    /// A saver of a document that was just opened from `path`.
    std::unique_ptr<ZLDocumentSaver> titledSaver(const QString& path)
    {
        EXPECT_TRUE(ZLAtomicFile::write(path, document.dataOfType()));
        return std::make_unique<ZLDocumentSaver>(document, recoveryFolder, machinery, path, asRead());
    }

    /// The document as one that was read from a file that holds just this.
    ZLReadDocument asRead()
    {
        return ZLReadDocument::of(ZLDocumentParts::of(document.snapshot()), document.dataOfType());
    }

    void addChapter(const char* title)
    {
        const auto chapter = std::make_shared<ZLChapter>();
        chapter->setTitle(QString::fromLatin1(title));
        chapter->setTimeStamp(double(document.chapterManager().count()) + 1.0);
        document.addChapter(chapter);
    }

    /// Lets the worker carry out what was given to it and the saver hear of it.
    void runTasks()
    {
        for (; !tasks.empty(); tasks.pop_front())
            tasks.front()();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::MetaCall);
    }

    /// What the timer and the worker do together.
    void writeAndSettle(ZLDocumentSaver& saver)
    {
        saver.writeNewestState();
        runTasks();
    }

    /// Titles in the file at `path`; a single "?" for one that is no document.
    static QStringList titlesIn(const QString& path)
    {
        const auto bytes = ZLBoundedFile::read(path, ZLFileBound::Document);
        const auto contents = ZLDocumentFile::decode(bytes ? bytes.value() : QByteArray());
        if (!contents)
            return { QStringLiteral("?") };
        QStringList titles;
        for (const QVariant& chapter : contents.value().chapters)
            titles.append(chapter.toMap().value(ZLChapterKey::Title).toString());
        return titles;
    }

    /// What the only journal in the recovery folder holds.
    ZLJournaledDocument journaled() const
    {
        const QStringList files = recoveryFolder.journaledFiles();
        EXPECT_EQ(files.size(), 1);
        const auto bytes = ZLBoundedFile::read(files.value(0) + ZLRecoveryFile::JournalSuffix, ZLFileBound::Document);
        const auto read = ZLJournalReader::read(bytes ? bytes.value() : QByteArray());
        EXPECT_TRUE(read) << qPrintable(read.error().message);
        return read ? read.value() : ZLJournaledDocument();
    }

    QStringList journaledTitles() const
    {
        QStringList titles;
        const auto chapters = journaled().contents.chapters;
        for (const QVariant& chapter : chapters)
            titles.append(chapter.toMap().value(ZLChapterKey::Title).toString());
        return titles;
    }

    static double durationIn(const QString& path)
    {
        const auto bytes = ZLBoundedFile::read(path, ZLFileBound::Document);
        const auto contents = ZLDocumentFile::decode(bytes ? bytes.value() : QByteArray());
        return contents ? contents.value().duration : -1.0;
    }

    ZLTemporarySettings settings;
    QTemporaryDir temporary;
    std::shared_ptr<SettableClock> clock = std::make_shared<SettableClock>();
    ZLRecoveryFolder recoveryFolder;
    ZLSavingMachinery machinery;
    std::deque<std::function<void()>> tasks;
    int writeCount = 0;
    ZLChapterDocument document;
};
