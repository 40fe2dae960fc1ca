#include "app/ui/shortcuts/ZLKeyEquivalents.h"

#include "app/ui/ZLDesktopFixture.h"
#include "document/ui/menus/ZLRecordingMenu.h"
#include "settings/ui/ZLShortcutField.h"

#include <QDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

/// Two documents, and a window that belongs to none, with a field for a shortcut in it.
class ZLKeyEquivalentsTest : public ZLDesktopFixture {
protected:
    void SetUp() override
    {
        ZLDesktopFixture::SetUp();
        m_first = newDocument();
        m_second = newDocument();
        m_equivalents.addWindow(windowOf(m_first));
        m_equivalents.addWindow(windowOf(m_second));
        m_field.setKeyCombo(std::nullopt);
    }

    void bringOtherWindowToFront()
    {
        m_other.show();
        m_other.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&m_other));
        m_field.setFocus();
    }
    void pressStart() { QTest::keyClick(QApplication::activeWindow(), Qt::Key_R, Qt::ControlModifier); }
    void setKeysForNewChapter(const QKeySequence& keys)
    {
        windowOf(m_first).recordingMenu().actionWithTag(2)->setShortcut(keys);
    }

    ZLCommandKeys m_keys;
    ZLKeyEquivalents m_equivalents { m_controller, m_keys };
    QWidget m_other;
    ZLShortcutField m_field { &m_other };
    ZLChapterDocument* m_first = nullptr;
    ZLChapterDocument* m_second = nullptr;
};

TEST_F(ZLKeyEquivalentsTest, InAWindowOfNoDocumentTheyActOnTheOneThatWasInFrontLast)
{
    makeCurrent(m_second);
    bringOtherWindowToFront();
    pressStart();
    EXPECT_TRUE(m_second->isRecording());
    EXPECT_FALSE(m_first->isRecording());
    makeCurrent(m_first);
    pressStart();
    EXPECT_TRUE(m_first->isRecording());
    EXPECT_TRUE(m_second->isRecording()) << "in a document's own window they are its own";
    bringOtherWindowToFront();
    pressStart();
    EXPECT_FALSE(m_first->isRecording());
    EXPECT_TRUE(m_second->isRecording());
}

TEST_F(ZLKeyEquivalentsTest, WithoutACurrentDocumentTheyActOnTheFirst)
{
    bringOtherWindowToFront();
    m_controller.setCurrentDocument(nullptr);
    pressStart();
    EXPECT_TRUE(m_first->isRecording());
    EXPECT_FALSE(m_second->isRecording());
}

TEST_F(ZLKeyEquivalentsTest, WhenTheDocumentIsClosedTheyActOnAnother)
{
    makeCurrent(m_first);
    bringOtherWindowToFront();
    ASSERT_TRUE(m_controller.closeDocument(m_first, ZLClosing::Discard));
    flush();
    pressStart();
    EXPECT_TRUE(m_second->isRecording());
}

TEST_F(ZLKeyEquivalentsTest, AShortcutFieldThatListensTakesThem)
{
    makeCurrent(m_first);
    bringOtherWindowToFront();
    m_field.click();
    ASSERT_TRUE(m_field.isRecording());
    QTest::keyClick(&m_field, Qt::Key_R, Qt::ControlModifier);
    EXPECT_FALSE(m_first->isRecording());
    pressStart();
    EXPECT_TRUE(m_first->isRecording()) << "once it listens no longer";
}

TEST_F(ZLKeyEquivalentsTest, InADialogOfADocumentThatShutsItsWindowOff)
{
    for (ZLChapterDocument* target : { m_first, m_second }) {
        QDialog dialog(&windowOf(m_first));
        QLineEdit field(&dialog);
        dialog.open();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog));
        field.setFocus();
        m_controller.setCurrentDocument(target);
        pressStart();
        EXPECT_TRUE(target->isRecording());
        pressStart();
        EXPECT_FALSE(target->isRecording()) << "each press counts once";
        QMessageBox alert(QMessageBox::Warning, u"Zelta"_s, u"Alert"_s, QMessageBox::Ok, &dialog);
        alert.open();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&alert));
        pressStart();
        EXPECT_FALSE(target->isRecording()) << "an alert of the dialog has its keys to itself";
    }
    EXPECT_FALSE(m_first->isRecording() || m_second->isRecording());
}

TEST_F(ZLKeyEquivalentsTest, ADialogMayGoWithItsWindow)
{
    makeCurrent(m_first);
    auto* dialog = new QDialog(&windowOf(m_first));
    auto* field = new QLineEdit(dialog);
    dialog->open();
    ASSERT_TRUE(QTest::qWaitForWindowActive(dialog));
    field->setFocus();
    ASSERT_TRUE(m_controller.closeDocument(m_first, ZLClosing::Discard));
    flush();
    bringOtherWindowToFront();
    pressStart();
    EXPECT_TRUE(m_second->isRecording());
}

TEST_F(ZLKeyEquivalentsTest, NotWhileAnAlertStands)
{
    for (ZLChapterDocument* alerted : { m_first, m_second }) {
        makeCurrent(m_first);
        QMessageBox alert(QMessageBox::Warning, u"Zelta"_s, u"Alert"_s, QMessageBox::Ok, &windowOf(alerted));
        alert.open();
        bringOtherWindowToFront();
        pressStart();
        EXPECT_FALSE(m_first->isRecording());
        EXPECT_FALSE(m_second->isRecording());
        alert.close();
    }
    pressStart();
    EXPECT_TRUE(m_first->isRecording());
}

TEST_F(ZLKeyEquivalentsTest, KeysWithAltActAsWithAltHeldAndOthersNot)
{
    QList<std::optional<bool>> held;
    makeCurrent(m_first);
    m_first->recordButtonPressed();
    QObject::connect(&m_first->chapterManager(), &ZLChapterManager::didInsertChapterAtIndex, &m_equivalents,
        [&] { held.append(m_keys.hasOptionKey); });
    setKeysForNewChapter(QKeySequence(u"Ctrl+Alt+M"_s));
    QTest::keyClick(&windowOf(m_first), Qt::Key_M, Qt::ControlModifier | Qt::AltModifier);
    setKeysForNewChapter(QKeySequence(u"F7"_s));
    QTest::keyClick(&windowOf(m_first), Qt::Key_F7);
    trigger(m_first, u"newChapter"_s);
    EXPECT_EQ(held, (QList<std::optional<bool>> { true, false, std::nullopt }))
        << "a click on the item leaves it to the keyboard";
}
