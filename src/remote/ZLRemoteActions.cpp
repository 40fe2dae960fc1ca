#include "remote/ZLRemoteActions.h"

#include "document/ZLCommandTag.h"
#include "settings/ZLSettingsManager.h"

#include <QCoreApplication>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace {

constexpr const char* actionTextContext = "ZLRemoteActions";

QString translatedActionText(const char* text)
{
    return QCoreApplication::translate(actionTextContext, text);
}

/// The first row for which the member has the value.
template <typename Value>
const ZLRemoteAction* actionWhere(const Value& value, Value ZLRemoteAction::* member)
{
    const auto rows = ZLRemoteActions::all();
    const auto found = std::ranges::find(rows, value, member);
    return found == rows.end() ? nullptr : &*found;
}

}

QString ZLRemoteAction::title() const
{
    return translatedActionText(titleText);
}

QString ZLRemoteAction::summary() const
{
    return translatedActionText(summaryText);
}

QString ZLRemoteAction::obstacle() const
{
    return translatedActionText(obstacleText);
}

std::span<const ZLRemoteAction> ZLRemoteActions::all()
{
    static const std::array<ZLRemoteAction, 6> table { {
        { ZLControllerToggleRecordingAction, ZLKeyComboKey::ToggleRecording, u"/zl/toggleRecording"_s,
            ZLCommandTag::ToggleRecording, QT_TRANSLATE_NOOP("ZLRemoteActions", "Start or Pause Recording"),
            QT_TRANSLATE_NOOP("ZLRemoteActions", "start or pause the clock"),
            QT_TRANSLATE_NOOP("ZLRemoteActions", "the clock starts after the beep") },
        { ZLControllerNewChapterAction, ZLKeyComboKey::NewChapter, u"/zl/newChapter"_s, ZLCommandTag::NewChapter,
            QT_TRANSLATE_NOOP("ZLRemoteActions", "New Chapter"),
            QT_TRANSLATE_NOOP("ZLRemoteActions", "add a chapter at the clock's reading"),
            QT_TRANSLATE_NOOP("ZLRemoteActions", "the clock is not running") },
        { ZLControllerDeleteSelectedChapterAction, ZLKeyComboKey::RemoveSelectedChapter, u"/zl/removeChapter"_s,
            ZLCommandTag::DeleteSelectedChapter, QT_TRANSLATE_NOOP("ZLRemoteActions", "Delete Chapter"),
            QT_TRANSLATE_NOOP("ZLRemoteActions", "delete the selected chapter"),
            QT_TRANSLATE_NOOP("ZLRemoteActions", "no chapter is selected") },
        { ZLControllerDeleteLastChapterAction, ZLKeyComboKey::RemoveLastChapter, u"/zl/removeLastChapter"_s,
            ZLCommandTag::DeleteLastChapter, QT_TRANSLATE_NOOP("ZLRemoteActions", "Delete Last Chapter"),
            QT_TRANSLATE_NOOP("ZLRemoteActions", "delete the last chapter"),
            QT_TRANSLATE_NOOP("ZLRemoteActions", "there are no chapters") },
        { ZLControllerSelectLastAction, ZLKeyComboKey::SelectLastChapter, u"/zl/selectPreviousChapter"_s,
            ZLCommandTag::SelectPreviousChapter, QT_TRANSLATE_NOOP("ZLRemoteActions", "Select Previous Chapter"),
            QT_TRANSLATE_NOOP("ZLRemoteActions", "select the chapter before"),
            QT_TRANSLATE_NOOP("ZLRemoteActions", "there is no chapter before") },
        { ZLControllerSelectNextAction, ZLKeyComboKey::SelectNextChapter, u"/zl/selectNextChapter"_s,
            ZLCommandTag::SelectNextChapter, QT_TRANSLATE_NOOP("ZLRemoteActions", "Select Next Chapter"),
            QT_TRANSLATE_NOOP("ZLRemoteActions", "select the chapter after"),
            QT_TRANSLATE_NOOP("ZLRemoteActions", "there is no chapter after") },
    } };
    return table;
}

QString ZLRemoteActions::actionForSettingsKey(const QString& settingsKey)
{
    const ZLRemoteAction* action = actionWhere(settingsKey, &ZLRemoteAction::settingsKey);
    return action ? action->identifier : u""_s;
}

std::optional<QString> ZLRemoteActions::actionForOSCAddress(const QString& address)
{
    const ZLRemoteAction* action = actionWhere(address, &ZLRemoteAction::oscAddress);
    return action ? std::optional(action->identifier) : std::nullopt;
}

const ZLRemoteAction* ZLRemoteActions::withIdentifier(const QString& identifier)
{
    return actionWhere(identifier, &ZLRemoteAction::identifier);
}

const ZLRemoteAction* ZLRemoteActions::withCommandWord(const QString& word)
{
    const auto rows = all();
    const auto found = std::ranges::find(rows, word, &ZLRemoteAction::commandWord);
    return found == rows.end() ? nullptr : &*found;
}

const ZLRemoteAction* ZLRemoteActions::withMenuTag(int tag)
{
    return actionWhere(tag, &ZLRemoteAction::menuTag);
}

bool ZLRemoteActions::isSameAction(const QString& left, const QString& right)
{
    return left.constData() == right.constData();
}
