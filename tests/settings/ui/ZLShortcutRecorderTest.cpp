#include "settings/ui/ZLShortcutRecorder.h"

#include "settings/ui/ZLShortcutField.h"

#include <QLabel>
#include <QSignalSpy>
#include <QTest>
#include <QToolButton>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

class ZLShortcutRecorderTest : public testing::Test {
protected:
    ZLShortcutRecorderTest() { m_recorder.setKeyboardLayout(ZLKeyboardLayout::us()); }

    void SetUp() override
    {
        m_recorder.show();
        m_recorder.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&m_recorder));
    }

    [[nodiscard]] ZLShortcutField& field() { return *m_recorder.findChild<ZLShortcutField*>(u"field"_s); }
    [[nodiscard]] QToolButton& clearButton() { return *m_recorder.findChild<QToolButton*>(u"clearButton"_s); }

    const QVariantMap m_f6 { { u"keyCode"_s, 97 }, { u"modifierFlags"_s, 0U }, { u"characters"_s, u"x"_s } };
    ZLShortcutRecorder m_recorder;
    QSignalSpy m_ends { &m_recorder, &ZLShortcutRecorder::didEndRecording };
};

TEST_F(ZLShortcutRecorderTest, AStoredShortcutIsShownAndGivenBackUntouched)
{
    m_recorder.setObjectValue(m_f6);
    EXPECT_EQ(field().text(), u"F6"_s);
    EXPECT_EQ(m_recorder.objectValue(), m_f6);
    m_recorder.setObjectValue(std::nullopt);
    EXPECT_EQ(field().text(), u"None"_s);
    EXPECT_EQ(m_ends.size(), 0);
}

TEST_F(ZLShortcutRecorderTest, ARecordedShortcutHasKeyCodeAndModifierFlags)
{
    field().startRecording();
    QTest::keyClick(&field(), Qt::Key_M, Qt::MetaModifier | Qt::AltModifier);
    ASSERT_TRUE(m_recorder.objectValue());
    EXPECT_EQ(m_recorder.objectValue()->value(u"keyCode"_s).toInt(), 46);
    EXPECT_EQ(m_recorder.objectValue()->value(u"modifierFlags"_s).toUInt(), 0x180000U);
    EXPECT_EQ(m_ends.size(), 1);
}

TEST_F(ZLShortcutRecorderTest, TheButtonClearsAndKeepsTheFocusInTheField)
{
    EXPECT_FALSE(clearButton().isEnabled());
    m_recorder.setObjectValue(m_f6);
    EXPECT_TRUE(clearButton().isEnabled());
    clearButton().setFocus();
    clearButton().click();
    EXPECT_EQ(m_recorder.objectValue(), std::nullopt);
    EXPECT_FALSE(clearButton().isEnabled());
    EXPECT_EQ(m_ends.size(), 1);
    EXPECT_TRUE(field().hasFocus());
}

TEST_F(ZLShortcutRecorderTest, AHintStaysAsLongAsTheRecording)
{
    m_recorder.setNotice(u"Taken."_s);
    field().startRecording();
    QTest::keyClick(&field(), Qt::Key_M);
    EXPECT_TRUE(m_recorder.notice().contains(u"Ctrl"_s));
    EXPECT_EQ(field().accessibleDescription(), m_recorder.notice());
    QTest::keyClick(&field(), Qt::Key_Escape);
    EXPECT_EQ(m_recorder.notice(), u"Taken."_s);
    m_recorder.setNotice({});
    EXPECT_EQ(m_recorder.notice(), u""_s);
    EXPECT_EQ(field().accessibleDescription(), u""_s);
}

TEST_F(ZLShortcutRecorderTest, TheChangeIsKnownBeforeTheRecordingStops)
{
    QStringList order;
    QObject::connect(&m_recorder, &ZLShortcutRecorder::recordingDidStart, [&order] { order.append(u"start"_s); });
    QObject::connect(&m_recorder, &ZLShortcutRecorder::didEndRecording, [&order] { order.append(u"change"_s); });
    QObject::connect(&m_recorder, &ZLShortcutRecorder::recordingDidStop, [&order] { order.append(u"stop"_s); });
    field().startRecording();
    QTest::keyClick(&field(), Qt::Key_F8);
    EXPECT_EQ(order, (QStringList { u"start"_s, u"change"_s, u"stop"_s }));
}

TEST_F(ZLShortcutRecorderTest, ItsButtonsAreNamedAfterWhatTheShortcutDoes)
{
    m_recorder.setTitle(u"New Chapter"_s);
    EXPECT_EQ(clearButton().accessibleName(), u"Clear New Chapter"_s);
    EXPECT_EQ(field().accessibleName(), u"New Chapter: None"_s);
}

TEST_F(ZLShortcutRecorderTest, TheButtonEndsTheListeningOfAFieldWithoutAShortcut)
{
    field().startRecording();
    ASSERT_TRUE(clearButton().isEnabled());
    clearButton().click();
    EXPECT_FALSE(m_recorder.isRecording());
    EXPECT_EQ(field().text(), u"None"_s);
    EXPECT_EQ(m_ends.size(), 0) << "nothing is different";
    EXPECT_FALSE(clearButton().isEnabled());
}

TEST_F(ZLShortcutRecorderTest, TheButtonEndsTheListeningAndClearsWhatThereWas)
{
    m_recorder.setObjectValue(m_f6);
    field().startRecording();
    QTest::keyPress(&field(), Qt::Key_F7);
    clearButton().click();
    EXPECT_FALSE(m_recorder.isRecording());
    EXPECT_EQ(m_recorder.objectValue(), std::nullopt);
    EXPECT_EQ(field().text(), u"None"_s);
    EXPECT_EQ(m_ends.size(), 1);
}
