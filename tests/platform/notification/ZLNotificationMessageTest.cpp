#include "platform/notification/ZLNotificationMessage.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using Type = ZLUserNotificationActivationType;

namespace {

ZLUserNotification newChapter()
{
    return {
        .title = u"New Chapter Added"_s,
        .subtitle = u"00:01:05.000"_s,
        .informativeText = u"Press Reply to quickly set a title"_s,
        .hasActionButton = true,
        .hasReplyButton = true,
        .responsePlaceholder = u"Chapter title"_s,
    };
}

// Positions of the arguments that matter here.
constexpr int summaryArgument = 3;
constexpr int bodyArgument = 4;
constexpr int actionsArgument = 5;
constexpr int hintsArgument = 6;

QVariant argument(int index, const QStringList& capabilities, const ZLUserNotification& notification = newChapter())
{
    return ZLNotificationMessage::arguments(notification, capabilities).value(index);
}

const QStringList everything { u"body"_s, u"body-markup"_s, u"actions"_s, u"inline-reply"_s };
const QStringList buttonsOnly { u"body"_s, u"actions"_s };

}

TEST(ZLNotificationMessageTest, AServerWithReplyFieldsGetsOne)
{
    const QVariantList arguments = ZLNotificationMessage::arguments(newChapter(), everything);
    const QVariantList expected { u"Zelta"_s, 0U, u"org.zelta.Zelta"_s, u"New Chapter Added"_s,
        u"00:01:05.000\nPress Reply to quickly set a title"_s, QStringList { u"inline-reply"_s, u"Reply"_s },
        QVariantMap {
            { u"desktop-entry"_s, u"org.zelta.Zelta"_s }, { u"x-kde-reply-placeholder-text"_s, u"Chapter title"_s } },
        -1 };
    EXPECT_EQ(arguments, expected);
}

TEST(ZLNotificationMessageTest, AServerWithButtonsOnlyGetsAReplyButton)
{
    EXPECT_EQ(argument(actionsArgument, buttonsOnly).toStringList(), (QStringList { u"reply"_s, u"Reply"_s }));
    EXPECT_FALSE(argument(hintsArgument, buttonsOnly).toMap().contains(u"x-kde-reply-placeholder-text"_s));
}

TEST(ZLNotificationMessageTest, AServerWithoutButtonsIsNotToldToShowAnyNorToSpeakOfThem)
{
    EXPECT_TRUE(argument(actionsArgument, { u"body"_s }).toStringList().isEmpty());
    EXPECT_EQ(argument(bodyArgument, { u"body"_s }).toString(), u"00:01:05.000"_s);
}

TEST(ZLNotificationMessageTest, AServerWithoutBodiesStillShowsTheTime)
{
    EXPECT_EQ(argument(summaryArgument, { u"actions"_s }).toString(), u"New Chapter Added – 00:01:05.000"_s);
    EXPECT_EQ(argument(bodyArgument, { u"actions"_s }).toString(), QString());
}

TEST(ZLNotificationMessageTest, TextsAreShownAsTheyAreTyped)
{
    ZLUserNotification notification = newChapter();
    notification.title = u"<b>Cats & dogs</b>"_s;
    notification.informativeText = u"<i>Cats</i> & \"dogs\""_s;
    EXPECT_EQ(argument(bodyArgument, everything, notification).toString(),
        u"00:01:05.000\n&lt;i&gt;Cats&lt;/i&gt; &amp; &quot;dogs&quot;"_s);
    EXPECT_EQ(argument(bodyArgument, buttonsOnly, notification).toString(), u"00:01:05.000\n<i>Cats</i> & \"dogs\""_s);
    EXPECT_EQ(argument(summaryArgument, everything, notification).toString(), u"<b>Cats & dogs</b>"_s)
        << "a summary is never markup";
}

TEST(ZLNotificationMessageTest, AnActionButtonWithoutAReplyIsAButtonOfItsOwn)
{
    const ZLUserNotification notification { .title = u"Exported"_s, .hasActionButton = true };
    EXPECT_EQ(
        argument(actionsArgument, everything, notification).toStringList(), (QStringList { u"action"_s, u"Show"_s }));
    EXPECT_EQ(argument(bodyArgument, everything, notification).toString(), QString());
    EXPECT_TRUE(argument(actionsArgument, everything, { .title = u"Exported"_s }).toStringList().isEmpty());
}

TEST(ZLNotificationMessageTest, OnlyKeysThatWereGivenMeanSomething)
{
    const ZLUserNotification withButton { .title = u"Exported"_s, .hasActionButton = true };
    EXPECT_EQ(ZLNotificationMessage::typeOfAction(newChapter(), u"reply"_s), Type::ReplyButtonClicked);
    EXPECT_EQ(ZLNotificationMessage::typeOfAction(newChapter(), u"default"_s), Type::ContentsClicked);
    EXPECT_EQ(ZLNotificationMessage::typeOfAction(newChapter(), u"action"_s), std::nullopt);
    EXPECT_EQ(ZLNotificationMessage::typeOfAction(newChapter(), u"inline-reply"_s), std::nullopt);
    EXPECT_EQ(ZLNotificationMessage::typeOfAction(withButton, u"action"_s), Type::ActionButtonClicked);
    EXPECT_EQ(ZLNotificationMessage::typeOfAction(withButton, u"reply"_s), std::nullopt);
}
