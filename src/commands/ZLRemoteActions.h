#pragma once

#include <QString>

#include <optional>
#include <span>

class ZLChapterDocument;

/// @name Action identifiers
/// Each equals its own name. An action is recognised by the identity of these constants, not by its text: a text that
/// came from outside can never start one. Who passes an action on passes the constant or a copy of it.
/// @{
inline const QString ZLControllerToggleRecordingAction = QStringLiteral("ZLControllerToggleRecordingAction");
inline const QString ZLControllerNewChapterAction = QStringLiteral("ZLControllerNewChapterAction");
inline const QString ZLControllerDeleteSelectedChapterAction =
    QStringLiteral("ZLControllerDeleteSelectedChapterAction");
inline const QString ZLControllerDeleteLastChapterAction = QStringLiteral("ZLControllerDeleteLastChapterAction");
inline const QString ZLControllerSelectLastAction = QStringLiteral("ZLControllerSelectLastAction");
inline const QString ZLControllerSelectNextAction = QStringLiteral("ZLControllerSelectNextAction");
/// @}

/// One command with all its names. It has an item in the Recording menu, a shortcut that can be recorded, an address
/// for remote controls and a word for the command line. "Last" in an identifier or a settings key of a selecting action
/// means the one before, as the address says.
struct ZLRemoteAction {
    using Operation = void (ZLChapterDocument::*)();

    QString identifier;
    Operation operation;
    /// Whether the command can do anything in this state of the document.
    bool (*isPossible)(ZLChapterDocument& document);
    /// Under which its shortcut is stored.
    QString settingsKey;
    /// Exact, as a control surface sends it: "/zl/newChapter".
    QString oscAddress;
    /// Object names of its menu item, and of the field for its shortcut in the preferences.
    /// @{
    QString menuName;
    QString fieldName;
    /// @}
    /// The key of its menu item until another one is recorded, "Ctrl+Return".
    QString menuKey;
    /// Untranslated; see the functions below.
    /// @{
    const char* menuText;
    const char* fieldText;
    const char* titleText;
    const char* summaryText;
    const char* obstacleText;
    /// @}

    /// The property "tag" of its item in the Recording menu: the number of its row, from 1.
    [[nodiscard]] int menuTag() const;
    /// The last part of the address, "newChapter": what a person types to give the command.
    [[nodiscard]] QString commandWord() const { return oscAddress.section(u'/', -1); }
    /// "&New Chapter", while the clock stands.
    [[nodiscard]] QString menuTitle() const;
    /// "&New Chapter:"
    [[nodiscard]] QString fieldTitle() const;
    /// "New Chapter"
    [[nodiscard]] QString title() const;
    /// "add a chapter at the clock's reading"
    [[nodiscard]] QString summary() const;
    /// Why the action may leave everything as it was: "the clock is not running".
    [[nodiscard]] QString obstacle() const;
};

/// The one table of actions. The menu, the preferences, the shortcuts, OSC and the command line are made from it. Its
/// functions may be called on any thread.
namespace ZLRemoteActions {

/// The actions in the order of the menu and of ZLSettingsManager::allKeyComboKeys().
[[nodiscard]] std::span<const ZLRemoteAction> all();

/// The identifier; "" for an unknown key.
[[nodiscard]] QString actionForSettingsKey(const QString& settingsKey);
/// The identifier; absent unless the address is exactly one of the table's.
[[nodiscard]] std::optional<QString> actionForOSCAddress(const QString& address);
/// Null unless `action` is one of the published identifiers itself.
[[nodiscard]] ZLRemoteAction::Operation operationForAction(const QString& action);

/// The rows by their other names; null when there is none. An identifier is compared by its text here.
/// @{
[[nodiscard]] const ZLRemoteAction* withIdentifier(const QString& identifier);
[[nodiscard]] const ZLRemoteAction* withCommandWord(const QString& word);
/// @}

/// Whether both are one and the same published constant.
[[nodiscard]] bool isSameAction(const QString& left, const QString& right);

}
