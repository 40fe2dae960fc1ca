#include "commands/ZLRemoteActions.h"

#include "document/ZLChapterDocument.h"
#include "settings/ZLSettingsManager.h"

#include <QCoreApplication>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace {

QString translatedActionText(const char* text)
{
    return QCoreApplication::translate("ZLRemoteActions", text);
}

bool isAlways(ZLChapterDocument&)
{
    return true;
}

bool isWithSelection(ZLChapterDocument& document)
{
    return document.canDeleteChapter();
}

bool isWithChapters(ZLChapterDocument& document)
{
    return document.tableModel().rowCount() > 0;
}

bool isBehindTheFirst(ZLChapterDocument& document)
{
    return document.selectedRow() >= 1;
}

bool isBeforeTheLast(ZLChapterDocument& document)
{
    return document.selectedRow() + 1 < document.tableModel().rowCount();
}

bool isWithRunningClock(ZLChapterDocument& document)
{
    return document.canAddChapter();
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

int ZLRemoteAction::menuTag() const
{
    return int(this - ZLRemoteActions::all().data()) + 1;
}

QString ZLRemoteAction::menuTitle() const
{
    return QCoreApplication::translate("ZLRecordingMenu", menuText);
}

QString ZLRemoteAction::fieldTitle() const
{
    return QCoreApplication::translate("ZLShortcutPrefsViewController", fieldText);
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
    static const std::array table {
        ZLRemoteAction { .identifier = ZLControllerToggleRecordingAction,
            .operation = &ZLChapterDocument::recordButtonPressed,
            .isPossible = isAlways,
            .settingsKey = ZLKeyComboKey::ToggleRecording,
            .oscAddress = u"/zl/toggleRecording"_s,
            .menuName = u"toggleRecording"_s,
            .fieldName = u"toggle"_s,
            .menuKey = u"Ctrl+R"_s,
            .menuText = QT_TRANSLATE_NOOP("ZLRecordingMenu", "Start &Recording"),
            .fieldText = QT_TRANSLATE_NOOP("ZLShortcutPrefsViewController", "&Start or Pause Recording:"),
            .titleText = QT_TRANSLATE_NOOP("ZLRemoteActions", "Start or Pause Recording"),
            .summaryText = QT_TRANSLATE_NOOP("ZLRemoteActions", "start or pause the clock"),
            .obstacleText = QT_TRANSLATE_NOOP("ZLRemoteActions", "the clock starts after the beep") },
        ZLRemoteAction { .identifier = ZLControllerNewChapterAction,
            .operation = &ZLChapterDocument::addChapterButtonPressed,
            .isPossible = isWithRunningClock,
            .settingsKey = ZLKeyComboKey::NewChapter,
            .oscAddress = u"/zl/newChapter"_s,
            .menuName = u"newChapter"_s,
            .fieldName = u"createChapter"_s,
            .menuKey = u"Ctrl+Return"_s,
            .menuText = QT_TRANSLATE_NOOP("ZLRecordingMenu", "&New Chapter"),
            .fieldText = QT_TRANSLATE_NOOP("ZLShortcutPrefsViewController", "&New Chapter:"),
            .titleText = QT_TRANSLATE_NOOP("ZLRemoteActions", "New Chapter"),
            .summaryText = QT_TRANSLATE_NOOP("ZLRemoteActions", "add a chapter at the clock's reading"),
            .obstacleText = QT_TRANSLATE_NOOP("ZLRemoteActions", "the clock is not running") },
        ZLRemoteAction { .identifier = ZLControllerDeleteSelectedChapterAction,
            .operation = &ZLChapterDocument::deleteButtonPressed,
            .isPossible = isWithSelection,
            .settingsKey = ZLKeyComboKey::RemoveSelectedChapter,
            .oscAddress = u"/zl/removeChapter"_s,
            .menuName = u"deleteSelectedChapter"_s,
            .fieldName = u"remove"_s,
            .menuKey = u"Ctrl+D"_s,
            .menuText = QT_TRANSLATE_NOOP("ZLRecordingMenu", "&Delete Chapter"),
            .fieldText = QT_TRANSLATE_NOOP("ZLShortcutPrefsViewController", "&Delete Chapter:"),
            .titleText = QT_TRANSLATE_NOOP("ZLRemoteActions", "Delete Chapter"),
            .summaryText = QT_TRANSLATE_NOOP("ZLRemoteActions", "delete the selected chapter"),
            .obstacleText = QT_TRANSLATE_NOOP("ZLRemoteActions", "no chapter is selected") },
        ZLRemoteAction { .identifier = ZLControllerDeleteLastChapterAction,
            .operation = &ZLChapterDocument::deleteLastChapter,
            .isPossible = isWithChapters,
            .settingsKey = ZLKeyComboKey::RemoveLastChapter,
            .oscAddress = u"/zl/removeLastChapter"_s,
            .menuName = u"deleteLastChapter"_s,
            .fieldName = u"removeLast"_s,
            .menuKey = u"Ctrl+Shift+Backspace"_s,
            .menuText = QT_TRANSLATE_NOOP("ZLRecordingMenu", "Delete &Last Chapter"),
            .fieldText = QT_TRANSLATE_NOOP("ZLShortcutPrefsViewController", "Delete &Last Chapter:"),
            .titleText = QT_TRANSLATE_NOOP("ZLRemoteActions", "Delete Last Chapter"),
            .summaryText = QT_TRANSLATE_NOOP("ZLRemoteActions", "delete the last chapter"),
            .obstacleText = QT_TRANSLATE_NOOP("ZLRemoteActions", "there are no chapters") },
        ZLRemoteAction { .identifier = ZLControllerSelectLastAction,
            .operation = &ZLChapterDocument::selectLastChapter,
            .isPossible = isBehindTheFirst,
            .settingsKey = ZLKeyComboKey::SelectLastChapter,
            .oscAddress = u"/zl/selectPreviousChapter"_s,
            .menuName = u"selectPreviousChapter"_s,
            .fieldName = u"selectLast"_s,
            .menuKey = u"Ctrl+Up"_s,
            .menuText = QT_TRANSLATE_NOOP("ZLRecordingMenu", "Select &Previous Chapter"),
            .fieldText = QT_TRANSLATE_NOOP("ZLShortcutPrefsViewController", "Select &Previous Chapter:"),
            .titleText = QT_TRANSLATE_NOOP("ZLRemoteActions", "Select Previous Chapter"),
            .summaryText = QT_TRANSLATE_NOOP("ZLRemoteActions", "select the chapter before"),
            .obstacleText = QT_TRANSLATE_NOOP("ZLRemoteActions", "there is no chapter before") },
        ZLRemoteAction { .identifier = ZLControllerSelectNextAction,
            .operation = &ZLChapterDocument::selectNextChapter,
            .isPossible = isBeforeTheLast,
            .settingsKey = ZLKeyComboKey::SelectNextChapter,
            .oscAddress = u"/zl/selectNextChapter"_s,
            .menuName = u"selectNextChapter"_s,
            .fieldName = u"selectNext"_s,
            .menuKey = u"Ctrl+Down"_s,
            .menuText = QT_TRANSLATE_NOOP("ZLRecordingMenu", "&Select Next Chapter"),
            .fieldText = QT_TRANSLATE_NOOP("ZLShortcutPrefsViewController", "Select Ne&xt Chapter:"),
            .titleText = QT_TRANSLATE_NOOP("ZLRemoteActions", "Select Next Chapter"),
            .summaryText = QT_TRANSLATE_NOOP("ZLRemoteActions", "select the chapter after"),
            .obstacleText = QT_TRANSLATE_NOOP("ZLRemoteActions", "there is no chapter after") },
    };
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

ZLRemoteAction::Operation ZLRemoteActions::operationForAction(const QString& action)
{
    for (const ZLRemoteAction& row : all()) {
        if (isSameAction(row.identifier, action))
            return row.operation;
    }
    return nullptr;
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

bool ZLRemoteActions::isSameAction(const QString& left, const QString& right)
{
    return left.constData() == right.constData();
}
