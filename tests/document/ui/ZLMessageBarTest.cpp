#include "document/ui/ZLMessageBar.h"

#include <QAccessible>
#include <QLabel>
#include <QMenuBar>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

class ZLMessageBarTest : public testing::Test {
protected:
    void SetUp() override
    {
        m_window.show();
        m_window.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&m_window));
    }

    /// The buttons that can be seen, in order.
    [[nodiscard]] QList<QPushButton*> buttons() const
    {
        QList<QPushButton*> visible;
        for (auto* button : m_bar->findChildren<QPushButton*>()) {
            if (button->isVisible())
                visible.append(button);
        }
        return visible;
    }
    [[nodiscard]] QStringList buttonTexts() const
    {
        QStringList texts;
        for (const auto* button : buttons())
            texts.append(button->text().remove(u'&'));
        return texts;
    }
    [[nodiscard]] QString focusedText() const
    {
        const auto* button = qobject_cast<QPushButton*>(m_window.focusWidget());
        return button && button->hasFocus() ? button->text().remove(u'&') : QString();
    }
    void showThree()
    {
        m_bar->showMessage(u"a"_s, u"First?"_s, { { u"A1"_s, {} }, { u"A2"_s, {} } });
        m_bar->showMessage(u"b"_s, u"Second."_s, {});
        m_bar->showMessage(u"c"_s, u"Third?"_s, { { u"C1"_s, {} } });
    }

    QWidget m_window;
    ZLMessageBar* m_bar = new ZLMessageBar(&m_window);
};

TEST_F(ZLMessageBarTest, ShowsASentenceAndItsButtons)
{
    EXPECT_TRUE(m_bar->isHidden());
    m_bar->showMessage(
        u"file"_s, u"Another program changed it."_s, { { u"Mine"_s, {} }, { u"Theirs"_s, {} }, { u"Both"_s, {} } });
    EXPECT_FALSE(m_bar->isHidden());
    EXPECT_EQ(m_bar->text(u"file"_s), u"Another program changed it."_s);
    EXPECT_EQ(m_bar->text(u"other"_s), QString());
    EXPECT_EQ(buttonTexts(), (QStringList { u"Mine"_s, u"Theirs"_s, u"Both"_s }));
}

TEST_F(ZLMessageBarTest, ShowsAtMostThreeButtons)
{
    m_bar->showMessage(u"m"_s, u"Choose."_s, { { u"1"_s, {} }, { u"2"_s, {} }, { u"3"_s, {} }, { u"4"_s, {} } });
    EXPECT_EQ(buttonTexts(), (QStringList { u"1"_s, u"2"_s, u"3"_s }));
}

TEST_F(ZLMessageBarTest, EachButtonDoesItsOwnAndOnlyOnce)
{
    QStringList pressed;
    const auto note = [&pressed](const QString& what) { return [&pressed, what] { pressed.append(what); }; };
    m_bar->showMessage(u"m"_s, u"Choose."_s, { { u"1"_s, note(u"1"_s) }, { u"2"_s, note(u"2"_s) } });
    buttons().last()->click();
    EXPECT_EQ(pressed, QStringList { u"2"_s });
    EXPECT_TRUE(m_bar->isHidden());
    EXPECT_EQ(m_bar->texts(), QStringList());
}

TEST_F(ZLMessageBarTest, AnAnswerMayAskTheNextQuestion)
{
    m_bar->showMessage(u"m"_s, u"First."_s, { { u"Go"_s, [this] {
                                                   EXPECT_TRUE(m_bar->isHidden());
                                                   m_bar->showMessage(u"m"_s, u"Second."_s, {});
                                               } } });
    buttons().first()->click();
    EXPECT_EQ(m_bar->texts(), QStringList { u"Second."_s });
    EXPECT_TRUE(buttons().isEmpty());
}

TEST_F(ZLMessageBarTest, MessagesStandBelowEachOtherAndAreAnsweredInAnyOrder)
{
    showThree();
    EXPECT_EQ(m_bar->texts(), (QStringList { u"First?"_s, u"Second."_s, u"Third?"_s }));
    EXPECT_EQ(buttonTexts(), (QStringList { u"A1"_s, u"A2"_s, u"C1"_s }));
    buttons().last()->click();
    EXPECT_EQ(m_bar->texts(), (QStringList { u"First?"_s, u"Second."_s }));
    m_bar->hideMessage(u"a"_s);
    EXPECT_EQ(m_bar->texts(), QStringList { u"Second."_s });
    m_bar->hideMessage(u"unknown"_s);
    EXPECT_FALSE(m_bar->isHidden());
    m_bar->hideMessage(u"b"_s);
    EXPECT_TRUE(m_bar->isHidden());
}

TEST_F(ZLMessageBarTest, AMessageTakesThePlaceOfTheOneWithItsName)
{
    showThree();
    m_bar->showMessage(u"a"_s, u"Changed?"_s, { { u"New"_s, {} } });
    EXPECT_EQ(m_bar->texts(), (QStringList { u"Changed?"_s, u"Second."_s, u"Third?"_s }));
    EXPECT_EQ(buttonTexts(), (QStringList { u"New"_s, u"C1"_s }));
}

TEST_F(ZLMessageBarTest, AFourthMessageWaitsUntilOneIsAnswered)
{
    showThree();
    m_bar->showMessage(u"d"_s, u"Fourth?"_s, { { u"D1"_s, {} } });
    EXPECT_EQ(m_bar->texts().size(), 4);
    EXPECT_FALSE(buttonTexts().contains(u"D1"_s));
    buttons().first()->click();
    EXPECT_EQ(buttonTexts(), (QStringList { u"C1"_s, u"D1"_s }));
}

TEST_F(ZLMessageBarTest, AMessageThatSaysMoreStandsInForAnother)
{
    const QSignalSpy returns(m_bar, &ZLMessageBar::keyboardReturned);
    showThree();
    m_bar->goToMessages();
    m_bar->showMessage(u"d"_s, u"First and more?"_s, { { u"D1"_s, {} } }, { u"a"_s, u"unknown"_s });
    EXPECT_EQ(returns.count(), 1) << "the keyboard was in the message that went out of sight";
    EXPECT_EQ(m_bar->texts(), (QStringList { u"Second."_s, u"Third?"_s, u"First and more?"_s }));
    EXPECT_EQ(m_bar->text(u"a"_s), u"First?"_s);
    EXPECT_EQ(buttonTexts(), (QStringList { u"C1"_s, u"D1"_s }));
    m_window.setFocus();
    m_bar->goToMessages();
    EXPECT_EQ(focusedText(), u"C1"_s);
    m_bar->hideMessage(u"d"_s);
    EXPECT_EQ(m_bar->texts(), (QStringList { u"First?"_s, u"Second."_s, u"Third?"_s }));
    EXPECT_EQ(buttonTexts(), (QStringList { u"A1"_s, u"A2"_s, u"C1"_s }));
}

TEST_F(ZLMessageBarTest, AMessageNeverTakesTheKeyboard)
{
    showThree();
    EXPECT_EQ(focusedText(), QString());
}

TEST_F(ZLMessageBarTest, TheKeyboardGoesFromMessageToMessage)
{
    m_bar->goToMessages();
    EXPECT_EQ(focusedText(), QString());
    showThree();
    m_bar->goToMessages();
    EXPECT_EQ(focusedText(), u"A1"_s);
    QTest::keyClick(m_window.focusWidget(), Qt::Key_Tab);
    EXPECT_EQ(focusedText(), u"A2"_s);
    m_bar->goToMessages();
    EXPECT_EQ(focusedText(), u"C1"_s) << "the second message has no button";
    m_bar->goToMessages();
    EXPECT_EQ(focusedText(), u"A1"_s);
}

TEST_F(ZLMessageBarTest, ReturnAnswersAndEscapeLeavesTheQuestionOpen)
{
    const QSignalSpy returns(m_bar, &ZLMessageBar::keyboardReturned);
    showThree();
    m_bar->goToMessages();
    QTest::keyClick(m_window.focusWidget(), Qt::Key_Escape);
    EXPECT_EQ(returns.count(), 1);
    EXPECT_EQ(m_bar->texts().size(), 3);
    QTest::keyClick(m_window.focusWidget(), Qt::Key_Return);
    EXPECT_EQ(returns.count(), 2);
    EXPECT_EQ(m_bar->texts(), (QStringList { u"Second."_s, u"Third?"_s }));
    m_window.setFocus();
    m_bar->hideMessage(u"c"_s);
    EXPECT_EQ(returns.count(), 2) << "the keyboard was not there";
}

TEST_F(ZLMessageBarTest, AScreenReaderKnowsAMessageAndWhatItsButtonsAnswer)
{
    showThree();
    const QAccessibleInterface* button = QAccessible::queryAccessibleInterface(buttons().last());
    EXPECT_EQ(button->text(QAccessible::Name), u"C1"_s);
    EXPECT_EQ(button->text(QAccessible::Description), u"Third?"_s);
    EXPECT_EQ(button->parent()->role(), QAccessible::AlertMessage);
    EXPECT_EQ(button->parent()->text(QAccessible::Name), u"Third?"_s);
}

TEST_F(ZLMessageBarTest, WhereThereIsLittleRoomTheButtonsStandBelowTheSentence)
{
    m_bar->showMessage(u"m"_s, u"The document cannot be saved: there is no such folder. Close it anyway?"_s,
        { { u"Save As…"_s, {} }, { u"Close Without Saving"_s, {} }, { u"Cancel"_s, {} } });
    const auto* sentence = m_bar->findChild<QLabel*>(u"messageText"_s);
    for (const int width : { 900, 420 }) {
        m_bar->resize(width, 200);
        QCoreApplication::processEvents();
        EXPECT_GE(sentence->width(), width / 3) << width;
        const bool isBelow = buttons().first()->geometry().top() > sentence->geometry().bottom();
        EXPECT_EQ(isBelow, width < 500) << width;
    }
}

TEST_F(ZLMessageBarTest, EachButtonHasALetterOfItsOwnThatNoMenuHas)
{
    auto* menus = new QMenuBar(&m_window);
    menus->addMenu(u"&Keep"_s);
    m_bar->showMessage(
        u"a"_s, u"Which?"_s, { { u"Keep Mine"_s, {} }, { u"Take Theirs"_s, {} }, { u"Keep Both"_s, {} } });
    m_bar->showMessage(u"b"_s, u"And?"_s, { { u"Try Now"_s, {} }, { u"Mmm"_s, {} } });
    QStringList texts;
    for (const auto* button : buttons())
        texts.append(button->text());
    EXPECT_EQ(texts, (QStringList { u"Keep &Mine"_s, u"&Take Theirs"_s, u"Keep &Both"_s, u"Try &Now"_s, u"Mmm"_s }));
}

TEST_F(ZLMessageBarTest, TheLetterPressesItsButton)
{
    bool isPressed = false;
    m_bar->showMessage(u"a"_s, u"Which?"_s, { { u"Mine"_s, {} }, { u"Theirs"_s, [&isPressed] { isPressed = true; } } });
    QTest::keyClick(&m_window, Qt::Key_T, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([&isPressed] { return isPressed; }));
}

TEST_F(ZLMessageBarTest, AnErrorLooksDifferentFromAQuestion)
{
    m_bar->showMessage(u"question"_s, u"Which?"_s, { { u"Mine"_s, {} } });
    m_bar->showMessage(u"error"_s, u"It failed."_s, { { u"Dismiss"_s, {} } }, {}, ZLMessageBar::Kind::Error);
    const auto groundOf = [this](const QString& name) {
        return m_bar->findChild<QWidget*>(name)->palette().color(QPalette::Window);
    };
    const QColor window = m_window.palette().color(QPalette::Window);
    EXPECT_NE(groundOf(u"question"_s), groundOf(u"error"_s));
    EXPECT_NE(groundOf(u"question"_s), window);
    EXPECT_NE(groundOf(u"error"_s), window);
    const auto iconOf = [this](const QString& name) {
        return m_bar->findChild<QWidget*>(name)->findChild<QLabel*>()->accessibleName();
    };
    EXPECT_EQ(iconOf(u"question"_s), u"Question"_s);
    EXPECT_EQ(iconOf(u"error"_s), u"Error"_s);
}

TEST_F(ZLMessageBarTest, AMessageThatAnswersACommandGetsTheKeyboard)
{
    m_bar->showMessage(u"a"_s, u"First?"_s, { { u"A1"_s, {} } });
    m_bar->showMessage(u"b"_s, u"Second?"_s, { { u"B1"_s, {} }, { u"B2"_s, {} } });
    EXPECT_EQ(focusedText(), QString());
    m_bar->takeKeyboardFor(u"b"_s);
    EXPECT_EQ(focusedText(), u"B1"_s);
}
