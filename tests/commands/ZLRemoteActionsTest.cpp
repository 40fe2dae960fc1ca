#include "commands/ZLRemoteActions.h"

#include "remote/ZLHotkeyController.h"
#include "remote/ZLOSCController.h"
#include "settings/ZLSettingsManager.h"

#include <QFile>
#include <QSet>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

struct DocumentedAction {
    QString identifier;
    QString settingsKey;
    QString oscAddress;
};

/// What users have in their preferences and on their control surfaces.
const QList<DocumentedAction> documentedActions {
    { u"ZLControllerToggleRecordingAction"_s, u"ZLToggleRecordingKeyCombo"_s, u"/zl/toggleRecording"_s },
    { u"ZLControllerNewChapterAction"_s, u"ZLNewChapterKeyCombo"_s, u"/zl/newChapter"_s },
    { u"ZLControllerDeleteSelectedChapterAction"_s, u"ZLRemoveSelectedChapterKeyCombo"_s, u"/zl/removeChapter"_s },
    { u"ZLControllerDeleteLastChapterAction"_s, u"ZLRemoveLastChapterKeyCombo"_s, u"/zl/removeLastChapter"_s },
    { u"ZLControllerSelectLastAction"_s, u"ZLSelectLastChapterKeyCombo"_s, u"/zl/selectPreviousChapter"_s },
    { u"ZLControllerSelectNextAction"_s, u"ZLSelectNextChapterKeyCombo"_s, u"/zl/selectNextChapter"_s },
};

}

TEST(ZLRemoteActions, EachRowHasItsDocumentedNamesAndTag)
{
    ASSERT_EQ(qsizetype(ZLRemoteActions::all().size()), documentedActions.size());
    int tag = 0;
    for (const ZLRemoteAction& action : ZLRemoteActions::all()) {
        const DocumentedAction& documented = documentedActions.at(tag);
        EXPECT_EQ(action.identifier, documented.identifier);
        EXPECT_EQ(action.settingsKey, documented.settingsKey);
        EXPECT_EQ(action.oscAddress, documented.oscAddress);
        EXPECT_EQ(action.menuTag(), ++tag);
    }
}

TEST(ZLRemoteActions, KeyAndAddressOfARowLeadToTheSamePublishedConstant)
{
    for (const ZLRemoteAction& action : ZLRemoteActions::all()) {
        const QString byKey = ZLHotkeyController::actionForSettingsKey(action.settingsKey);
        const std::optional<QString> byAddress = ZLOSCController::actionForOSCKey(action.oscAddress);
        EXPECT_TRUE(ZLRemoteActions::isSameAction(byKey, action.identifier));
        ASSERT_TRUE(byAddress);
        EXPECT_TRUE(ZLRemoteActions::isSameAction(*byAddress, byKey));
    }
    EXPECT_TRUE(ZLRemoteActions::isSameAction(
        ZLHotkeyController::actionForSettingsKey(u"ZLSelectLastChapterKeyCombo"_s), ZLControllerSelectLastAction));
    EXPECT_TRUE(ZLRemoteActions::isSameAction(
        ZLOSCController::actionForOSCKey(u"/zl/selectPreviousChapter"_s).value(), ZLControllerSelectLastAction));
}

TEST(ZLRemoteActions, AnEqualTextIsNotTheConstant)
{
    const QString copyOfConstant = ZLControllerNewChapterAction;
    const QString sameText = QString::fromLatin1("ZLControllerNewChapterAction");
    EXPECT_EQ(sameText, ZLControllerNewChapterAction);
    EXPECT_TRUE(ZLRemoteActions::isSameAction(copyOfConstant, ZLControllerNewChapterAction));
    EXPECT_FALSE(ZLRemoteActions::isSameAction(sameText, ZLControllerNewChapterAction));
    EXPECT_FALSE(ZLRemoteActions::isSameAction(ZLControllerSelectNextAction, ZLControllerNewChapterAction));
}

TEST(ZLRemoteActions, AnUnknownKeyIsTheEmptyTextAndAnUnknownAddressIsNothing)
{
    const QString unknown = ZLRemoteActions::actionForSettingsKey(u"ZLFontSizeSetting"_s);
    EXPECT_TRUE(unknown.isEmpty());
    EXPECT_FALSE(unknown.isNull());
    EXPECT_EQ(ZLRemoteActions::actionForSettingsKey({}), u""_s);
    for (const QString& address : { u"/zl/newchapter"_s, u"/zl/newChapter/"_s, u"zl/newChapter"_s, u"/zl/new*"_s,
             u" /zl/newChapter"_s, u"/zl/isRecording"_s, u"/"_s, u""_s, QString() })
        EXPECT_EQ(ZLRemoteActions::actionForOSCAddress(address), std::nullopt) << qPrintable(address);
}

TEST(ZLRemoteActions, TheOrderIsThatOfTheShortcutSettings)
{
    QStringList keys;
    for (const ZLRemoteAction& action : ZLRemoteActions::all())
        keys.append(action.settingsKey);
    EXPECT_EQ(keys, ZLSettingsManager::allKeyComboKeys());
}

TEST(ZLRemoteActions, TheGuideToRemoteControlHasALineForEachAddress)
{
    QFile file(QStringLiteral(ZELTA_DOCS "/OSC.md"));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QString guide = QString::fromUtf8(file.readAll());
    for (const ZLRemoteAction& action : ZLRemoteActions::all())
        EXPECT_TRUE(guide.contains(u"\n| `%1` |"_s.arg(action.oscAddress))) << qPrintable(action.oscAddress);
}

TEST(ZLRemoteActions, ARowIsFoundByEachOfItsNamesAndEveryTextIsDifferent)
{
    QSet<QString> texts;
    for (const ZLRemoteAction& action : ZLRemoteActions::all()) {
        EXPECT_EQ(ZLRemoteActions::withIdentifier(action.identifier), &action);
        EXPECT_EQ(ZLRemoteActions::withCommandWord(action.commandWord()), &action);
        texts << action.title() << action.summary() << action.obstacle() << action.commandWord();
    }
    EXPECT_EQ(texts.size(), 4 * documentedActions.size());
    EXPECT_FALSE(texts.contains(QString()));
    EXPECT_EQ(ZLRemoteActions::withCommandWord(u"newchapter"_s), nullptr);
    EXPECT_EQ(ZLRemoteActions::withCommandWord({}), nullptr);
    EXPECT_EQ(ZLRemoteActions::withIdentifier({}), nullptr);
}
