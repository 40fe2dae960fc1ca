#pragma once

#include <QString>

#include <optional>
#include <span>

/// @name Action identifiers
/// Each equals its own name. An action is recognised by the identity of these constants, not by its text, so whoever
/// passes one passes the constant or a copy of it.
/// @{
inline const QString ZLControllerToggleRecordingAction = QStringLiteral("ZLControllerToggleRecordingAction");
inline const QString ZLControllerNewChapterAction = QStringLiteral("ZLControllerNewChapterAction");
inline const QString ZLControllerDeleteSelectedChapterAction =
    QStringLiteral("ZLControllerDeleteSelectedChapterAction");
inline const QString ZLControllerDeleteLastChapterAction = QStringLiteral("ZLControllerDeleteLastChapterAction");
inline const QString ZLControllerSelectLastAction = QStringLiteral("ZLControllerSelectLastAction");
inline const QString ZLControllerSelectNextAction = QStringLiteral("ZLControllerSelectNextAction");
/// @}

/// One command that works from outside the window, under all its names. "Last" in an identifier or a settings key of a
/// selecting action means the one before, as the address says.
struct ZLRemoteAction {
    QString identifier;
    /// Under which its shortcut is stored.
    QString settingsKey;
    /// Exact, as a control surface sends it: "/zl/newChapter".
    QString oscAddress;
    /// Tag of its item in the Recording menu, see ZLCommandTag.
    int menuTag;
    /// Untranslated; see title(), summary() and obstacle().
    const char* titleText;
    const char* summaryText;
    const char* obstacleText;

    /// The last part of the address, "newChapter": what a person types to give the command.
    [[nodiscard]] QString commandWord() const { return oscAddress.section(u'/', -1); }
    /// "New Chapter"
    [[nodiscard]] QString title() const;
    /// "add a chapter at the clock's reading"
    [[nodiscard]] QString summary() const;
    /// Why the action may leave everything as it was: "the clock is not running".
    [[nodiscard]] QString obstacle() const;
};

/// The one table of actions. Its functions may be called on any thread.
namespace ZLRemoteActions {

/// The six actions in the order of their menu tags, which begin at 1, and of ZLSettingsManager::allKeyComboKeys().
[[nodiscard]] std::span<const ZLRemoteAction> all();

/// The identifier; "" for an unknown key.
[[nodiscard]] QString actionForSettingsKey(const QString& settingsKey);
/// The identifier; absent unless the address is exactly one of the table's.
[[nodiscard]] std::optional<QString> actionForOSCAddress(const QString& address);

/// The rows by their other names; null when there is none. An identifier is compared by its text here.
/// @{
[[nodiscard]] const ZLRemoteAction* withIdentifier(const QString& identifier);
[[nodiscard]] const ZLRemoteAction* withCommandWord(const QString& word);
[[nodiscard]] const ZLRemoteAction* withMenuTag(int tag);
/// @}

/// Whether both are one and the same published constant.
[[nodiscard]] bool isSameAction(const QString& left, const QString& right);

}
