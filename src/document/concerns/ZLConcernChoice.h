#pragma once

#include <QString>

#include <span>

/// What can be done about a concern.
enum class ZLConcernAction {
    ContinueRecording,
    StayPaused,
    AddSleptTime,
    LeaveSleptTime,
    TakeRecordersTime,
    KeepZeltasTime,
    KeepMine,
    TakeTheirs,
    KeepBoth,
    TryNow,
    SaveAs, ///< Asks for a place, so it is carried out by what shows the concern.
    Dismiss,
};

/// One action with all its texts. Those that end in "Text" are untranslated.
struct ZLConcernChoice {
    ZLConcernAction action = ZLConcernAction::Dismiss;
    /// Of a button, in a window.
    const char* labelText = nullptr;
    /// What a person types, without a window; null when the choice is there in windows only, as are the next three.
    const char* wordText = nullptr;
    /// Follows the word in a sentence about the concern.
    const char* effectText = nullptr;
    const char* summaryText = nullptr;
    const char* obstacleText = nullptr;

    [[nodiscard]] QString label() const;
    [[nodiscard]] QString word() const { return QString::fromLatin1(wordText); }
    /// "writes over it"
    [[nodiscard]] QString effect() const;
    /// "write over what another program made of the file"
    [[nodiscard]] QString summary() const;
    /// Why the choice may leave everything as it was: "no other program changed the file".
    [[nodiscard]] QString obstacle() const;
};

/// The one table of choices.
namespace ZLConcernChoices {

[[nodiscard]] std::span<const ZLConcernChoice> all();
[[nodiscard]] const ZLConcernChoice& of(ZLConcernAction action);
/// Null when no choice has this word.
[[nodiscard]] const ZLConcernChoice* withWord(const QString& word);

}
