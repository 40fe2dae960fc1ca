#pragma once

#include "app/ui/ZLProgramRun.h"
#include "app/ui/windows/ZLDocumentWindows.h"
#include "document/ui/ZLChapterDocumentWindow.h"
#include "document/ui/ZLMessageBar.h"
#include "document/ui/ZLStatusLine.h"
#include "platform/ZLBoundedFile.h"
#include "support/ZLChapterBuilders.h"
#include "support/ZLFakeHostClock.h"
#include "support/ZLTemporarySettings.h"

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QToolButton>
#include <gtest/gtest.h>

#include <memory>

/// Documents in windows, on a state folder of the test's own, with a disk that fails when the test wants it to.
class ZLDesktopFixture : public testing::Test {
protected:
    ZLDesktopFixture() { ZLSettingsManager::setCreateNewChapterOnStart(false); }

    void SetUp() override
    {
        QFile::remove(ZLWindowStateStore::standardPath());
        // File dialogs start in the working directory.
        ASSERT_TRUE(QDir::setCurrent(m_folder.path()));
    }

    void TearDown() override
    {
        m_windows.reset();
        QDir::setCurrent(m_previousFolder);
    }

    [[nodiscard]] ZLDocumentControllerSetup setup()
    {
        const auto runAtOnce = [](const std::function<void()>& task) { task(); };
        ZLDocumentControllerSetup result;
        result.environment.hostClock = m_clock;
        result.environment.bootClock = m_bootClock;
        result.machinery.clock = m_clock;
        result.machinery.executor = runAtOnce;
        // However busy the machine is, what a test looks for has to be there.
        result.machinery.journalDisk.longestHandOver = std::chrono::minutes(1);
        result.machinery.writeFile = [this](const QString& path, const QByteArray& bytes) -> ZLStatus {
            if (!m_diskError.isEmpty())
                return ZLError { m_diskError };
            return ZLAtomicFile::write(path, bytes);
        };
        result.stateFolder = filePath(QStringLiteral("state"));
        result.sessionExecutor = runAtOnce;
        return result;
    }

    [[nodiscard]] QString filePath(const QString& name) const { return m_folder.filePath(name); }

    static void addChapter(ZLChapterDocument* document, const QString& title)
    {
        document->addChapter(ZLTestChapters::titled(title));
    }
    static QStringList titles(ZLChapterDocument* document)
    {
        return ZLTestChapters::titles(document->chapterManager().allChapters());
    }

    /// A document file with one chapter; its path.
    QString storedFile(const QString& name, const QString& title = QStringLiteral("Stored"))
    {
        ZLChapterDocument document(setup().environment);
        addChapter(&document, title);
        EXPECT_TRUE(ZLAtomicFile::write(filePath(name), document.dataOfType()));
        return filePath(name);
    }
    QStringList titlesInFile(const QString& path)
    {
        ZLChapterDocument document(setup().environment);
        const auto bytes = ZLBoundedFile::read(path, ZLFileBound::Document);
        EXPECT_TRUE(bytes && document.readFromData(bytes.value()));
        return titles(&document);
    }

    ZLChapterDocument* newDocument() { return m_controller.newDocument(); }
    ZLChapterDocument* openFile(const QString& path)
    {
        const auto opened = m_controller.openDocument(path);
        EXPECT_TRUE(opened);
        return opened ? opened.value() : nullptr;
    }
    /// Opens files as a person does and waits until they are read.
    void openAndWait(const QStringList& paths)
    {
        m_windows->open(paths);
        waitUntilRead();
    }
    /// The same for what another start of the program asks for; what could not be opened.
    QStringList openLater(const ZLLaunchRequest& request)
    {
        QStringList problems;
        m_windows->openLater(request, [&problems](const QStringList& told) { problems = told; });
        waitUntilRead();
        return problems;
    }
    void waitUntilRead()
    {
        EXPECT_TRUE(QTest::qWaitFor([this] { return !m_windows->isOpening(); }, 60'000));
    }
    [[nodiscard]] ZLChapterDocumentWindow& windowOf(ZLChapterDocument* document)
    {
        return *m_windows->windowOf(document);
    }
    [[nodiscard]] QAction* action(ZLChapterDocument* document, const QString& name)
    {
        return windowOf(document).findChild<QAction*>(name);
    }
    void trigger(ZLChapterDocument* document, const QString& name)
    {
        ASSERT_NE(action(document, name), nullptr) << qPrintable(name);
        action(document, name)->trigger();
        settle();
    }
    /// Waits for what savers were asked for.
    void settle()
    {
        const auto documents = m_controller.documents();
        for (const ZLChapterDocument* document : documents)
            m_controller.saverOf(document)->settle(QDeadlineTimer(ZLSilentDisk::CommandPatience));
    }
    void makeCurrent(ZLChapterDocument* document)
    {
        windowOf(document).activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&windowOf(document)));
    }

    [[nodiscard]] QString barText(ZLChapterDocument* document)
    {
        return windowOf(document).messageBar().texts().join(u'\n');
    }
    /// Without its mnemonic.
    [[nodiscard]] static QString plainTextOf(const QPushButton& button) { return button.text().remove(u'&'); }
    [[nodiscard]] QStringList barButtons(ZLChapterDocument* document)
    {
        QStringList texts;
        for (const auto* button : windowOf(document).messageBar().findChildren<QPushButton*>()) {
            if (button->isVisible())
                texts.append(plainTextOf(*button));
        }
        return texts;
    }
    void pressInBar(ZLChapterDocument* document, const QString& text)
    {
        const auto buttons = windowOf(document).messageBar().findChildren<QPushButton*>();
        for (QPushButton* button : buttons) {
            if (button->isVisible() && plainTextOf(*button) == text) {
                button->click();
                settle();
                return;
            }
        }
        FAIL() << "no button " << qPrintable(text);
    }
    [[nodiscard]] QString passingMessage(ZLChapterDocument* document)
    {
        return windowOf(document).statusLine().passingMessage();
    }
    [[nodiscard]] QToolButton* saveStatus(ZLChapterDocument* document)
    {
        return windowOf(document).statusLine().findChild<QToolButton*>(QStringLiteral("saveStatus"));
    }

    /// The file dialog in front of the document's window; null when there is none.
    [[nodiscard]] QFileDialog* dialogOf(ZLChapterDocument* document)
    {
        const auto dialogs = windowOf(document).findChildren<QFileDialog*>();
        for (QFileDialog* dialog : dialogs) {
            if (dialog->isVisible())
                return dialog;
        }
        return nullptr;
    }
    /// The file dialog that is a window of its own; null when there is none.
    [[nodiscard]] static QFileDialog* exportDialog()
    {
        const auto windows = QApplication::topLevelWidgets();
        for (QWidget* window : windows) {
            if (auto* dialog = qobject_cast<QFileDialog*>(window); dialog && dialog->isVisible() && !dialog->parent())
                return dialog;
        }
        return nullptr;
    }
    /// Confirms the dialog with `path` chosen in it.
    void choose(QFileDialog* dialog, const QString& path)
    {
        ASSERT_NE(dialog, nullptr);
        // The field keeps what it has while a person types into it.
        dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))->clearFocus();
        dialog->selectFile(path);
        static_cast<QDialog*>(dialog)->accept();
        settle();
        flush();
    }

    /// Carries out what is due at the next turn of the event loop.
    static void flush()
    {
        QCoreApplication::sendPostedEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    /// What the timer of the document's saver does.
    void writeNow(ZLChapterDocument* document)
    {
        m_controller.saverOf(document)->writeNewestState();
        flush();
    }

    const QString m_previousFolder = QDir::currentPath();
    ZLTemporarySettings m_settings;
    QTemporaryDir m_folder;
    /// Why writing fails; empty while it works.
    QString m_diskError;
    std::shared_ptr<ZLFakeHostClock> m_clock = std::make_shared<ZLFakeHostClock>();
    std::shared_ptr<ZLFakeHostClock> m_bootClock = std::make_shared<ZLFakeHostClock>();
    ZLDocumentController m_controller { setup() };
    std::unique_ptr<ZLDocumentWindows> m_windows = std::make_unique<ZLDocumentWindows>(m_controller);
};
