#pragma once

#include "app/ZLDocumentController.h"
#include "support/ZLAsksSaver.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTimeZone>
#include <gtest/gtest.h>

/// Documents on a state folder of the test's own, on which one process after another lives.
class ZLDocumentControllerFixture : public testing::Test, protected ZLAsksSaver {
protected:
    struct SettableClock final : ZLHostClock {
        double seconds = 1000.0;
        double now() const override { return seconds; }
    };

    ZLDocumentControllerFixture() { start(); }

    /// Begins a process's life on the state folder; the one before ends as if it had been killed.
    ZLDocumentController& start()
    {
        controller.reset();
        controller = std::make_unique<ZLDocumentController>(setup());
        return *controller;
    }

    ZLStatus savedAs(ZLChapterDocument* document, const QString& path)
    {
        return outcomeOf(*controller->saverOf(document),
            [&](const ZLWhenDone& whenDone) { controller->saveDocumentAs(document, path, whenDone); });
    }

    ZLDocumentControllerSetup setup()
    {
        ZLDocumentControllerSetup result;
        result.environment.hostClock = clock;
        result.environment.wallClock = [this] { return wallClock; };
        result.machinery.clock = clock;
        result.machinery.executor = [](const std::function<void()>& task) { task(); };
        // However busy the machine is, what a test looks for has to be there.
        result.machinery.journalDisk.longestHandOver = std::chrono::minutes(1);
        result.stateFolder = filePath("state");
        result.sessionExecutor = [](const std::function<void()>& task) { task(); };
        return result;
    }

    QString filePath(const char* name) const { return temporary.filePath(QString::fromLatin1(name)); }

    QString storedFile(const char* name, const char* title = "Stored")
    {
        ZLChapterDocument document(setup().environment);
        addChapter(document, title);
        EXPECT_TRUE(ZLAtomicFile::write(filePath(name), document.dataOfType()));
        return filePath(name);
    }

    static void addChapter(ZLChapterDocument& document, const char* title)
    {
        const auto chapter = std::make_shared<ZLChapter>();
        chapter->setTitle(QString::fromLatin1(title));
        document.addChapter(chapter);
    }

    ZLChapterDocument* open(const QString& path)
    {
        const auto opened = controller->openDocument(path);
        EXPECT_TRUE(opened) << qPrintable(opened.error().message);
        return opened ? opened.value() : nullptr;
    }

    /// What the timer of the document's saver does.
    void write(const ZLChapterDocument* document)
    {
        controller->saverOf(document)->writeNewestState();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::MetaCall);
    }

    /// Name and first chapter's title of each open document.
    QStringList openDocuments() const
    {
        QStringList names;
        for (ZLChapterDocument* document : controller->documents()) {
            const auto chapter = document->chapterManager().chapterAtIndex(0);
            names.append(document->displayName() + QStringLiteral(":") + (chapter ? chapter->title() : QString()));
        }
        return names;
    }

    QStringList recoveryFiles() const { return ZLRecoveryFolder(filePath("state/recovery")).files(); }

    QTemporaryDir temporary;
    std::shared_ptr<SettableClock> clock = std::make_shared<SettableClock>();
    QDateTime wallClock = QDateTime::fromMSecsSinceEpoch(1'700'000'000'000, QTimeZone::utc());
    std::unique_ptr<ZLDocumentController> controller;
};
