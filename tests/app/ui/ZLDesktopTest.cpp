#include "app/ui/ZLDesktop.h"

#include "app/ui/ZLDesktopApplication.h"
#include "app/ui/ZLProgramRun.h"
#include "document/ZLChapterDocument.h"
#include "document/ui/ZLChapterDocumentWindow.h"
#include "document/ui/ZLDocumentToolbar.h"
#include "document/ui/ZLMessageBar.h"
#include "support/ZLChapterBuilders.h"
#include "support/ZLTemporarySettings.h"

#include <QAction>
#include <QTest>
#include <QToolButton>
#include <gtest/gtest.h>

#include <csignal>

using namespace Qt::StringLiterals;

/// The whole program with windows, on a state folder of the test's own.
class ZLDesktopTest : public testing::Test {
protected:
    ZLDesktopTest()
    {
        qputenv("XDG_STATE_HOME", m_folder.path().toLocal8Bit());
        ZLSettingsManager::setCreateNewChapterOnStart(false);
    }
    ~ZLDesktopTest() override { qputenv("XDG_STATE_HOME", m_previousState); }

    /// Starts the program, carries out the steps, and lets it end if it has not yet.
    int run(const QStringList& files, const QList<std::function<void()>>& steps)
    {
        ZLDesktop desktop(*qobject_cast<ZLDesktopApplication*>(QCoreApplication::instance()));
        return ZLProgramRun::run(steps, [&] { return desktop.run({ .files = files }); });
    }

    /// In opening order.
    [[nodiscard]] static QList<ZLChapterDocumentWindow*> windows()
    {
        QList<ZLChapterDocumentWindow*> windows;
        const auto all = QApplication::topLevelWidgets();
        for (QWidget* widget : all) {
            if (auto* window = qobject_cast<ZLChapterDocumentWindow*>(widget))
                windows.append(window);
        }
        std::sort(windows.begin(), windows.end(),
            [](const auto* left, const auto* right) { return left->windowTitle() < right->windowTitle(); });
        return windows;
    }
    [[nodiscard]] static QStringList titlesOfAddButtons()
    {
        QStringList titles;
        for (const auto* window : windows())
            titles.append(window->toolbar().addButton()->text());
        return titles;
    }
    static void addTemplate(ZLChapterDocumentWindow* window)
    {
        window->document().templateViewController().chapterManager().addChapter(ZLTestChapters::titled(u"News"_s));
        window->document().updateAddButton();
    }

    const QByteArray m_previousState = qgetenv("XDG_STATE_HOME");
    ZLTemporarySettings m_settings;
    QTemporaryDir m_folder;
};

TEST_F(ZLDesktopTest, AltTurnsTheAddButtonsOfAllDocumentsAtOnce)
{
    const QStringList next { u"Next"_s, u"Next"_s };
    const QStringList add { u"Add"_s, u"Add"_s };
    run({}, { [&] {
        windows().first()->findChild<QAction*>(u"newDocument"_s)->trigger();
        for (auto* window : windows())
            addTemplate(window);
        EXPECT_EQ(titlesOfAddButtons(), next);
        QTest::keyPress(windows().first(), Qt::Key_Alt);
        EXPECT_EQ(titlesOfAddButtons(), add);
        QTest::keyRelease(windows().first(), Qt::Key_Alt, Qt::AltModifier);
        EXPECT_EQ(titlesOfAddButtons(), next);
    } });
}

TEST_F(ZLDesktopTest, LeavingTheProgramWithAltHeldTurnsTheAddButtonBack)
{
    run({}, { [&] {
        addTemplate(windows().first());
        // It cannot be left before it has the keyboard.
        ASSERT_TRUE(QTest::qWaitForWindowActive(windows().first()));
        QTest::keyPress(windows().first(), Qt::Key_Alt);
        EXPECT_EQ(titlesOfAddButtons(), QStringList { u"Add"_s });
        windows().first()->hide();
        EXPECT_TRUE(QTest::qWaitFor([] { return titlesOfAddButtons() == QStringList { u"Next"_s }; }));
    } });
}

TEST_F(ZLDesktopTest, AClickWithAltHeldAddsABlankChapter)
{
    run({}, { [&] {
        auto* window = windows().first();
        addTemplate(window);
        window->document().recordButtonPressed();
        QTest::mouseClick(window->toolbar().addButton(), Qt::LeftButton, Qt::AltModifier);
        EXPECT_EQ(window->document().templateViewController().chapterManager().count(), 1);
        QTest::mouseClick(window->toolbar().addButton(), Qt::LeftButton, Qt::NoModifier);
        EXPECT_EQ(window->document().templateViewController().chapterManager().count(), 0);
        EXPECT_EQ(ZLTestChapters::titles(window->document().chapterManager().allChapters()),
            (QStringList { u""_s, u"News"_s }));
        window->document().recordButtonPressed();
    } });
}

TEST_F(ZLDesktopTest, TheNamedFilesAreOpenedAndWhatFailsIsTold)
{
    const QString broken = m_folder.filePath(u"broken.zelta"_s);
    QFile file(broken);
    ASSERT_TRUE(file.open(QFile::WriteOnly));
    file.write("no document");
    file.close();
    run({ broken }, { [&] {
        ASSERT_EQ(windows().size(), 1);
        EXPECT_TRUE(windows().first()->messageBar().texts().join(u'\n').contains("broken.zelta"_L1));
        EXPECT_EQ(windows().first()->document().displayName(), u"Untitled"_s);
    } });
}

TEST_F(ZLDesktopTest, ASignalEndsTheProgramAndKeepsTheRunningRecording)
{
    const int status = run({}, { [&] {
        windows().first()->document().recordButtonPressed();
        windows().first()->document().addChapterButtonPressed();
        (void)std::raise(SIGTERM);
    } });
    EXPECT_EQ(status, 0);
    run({}, { [&] {
        ASSERT_EQ(windows().size(), 1);
        EXPECT_EQ(windows().first()->document().chapterManager().count(), 1);
        EXPECT_FALSE(windows().first()->document().isRecording());
    } });
}
