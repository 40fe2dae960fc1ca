#include "document/concerns/ZLConcernChoice.h"

#include <QCoreApplication>

#include <algorithm>
#include <array>

namespace {

using Action = ZLConcernAction;

constexpr auto notInterrupted = QT_TRANSLATE_NOOP("ZLConcernChoice", "no recording was interrupted");
constexpr auto notSlept = QT_TRANSLATE_NOOP("ZLConcernChoice", "the computer did not sleep");
constexpr auto noDifference = QT_TRANSLATE_NOOP("ZLConcernChoice", "no recorder differs from the clock");
constexpr auto notChanged = QT_TRANSLATE_NOOP("ZLConcernChoice", "no other program changed the file");

/// In the order of the actions.
constexpr std::array concernChoices {
    ZLConcernChoice { Action::ContinueRecording, QT_TRANSLATE_NOOP("ZLConcernChoice", "Continue as if Never Stopped"),
        "continue", QT_TRANSLATE_NOOP("ZLConcernChoice", "lets it run as if it had never stopped"),
        QT_TRANSLATE_NOOP(
            "ZLConcernChoice", "let the clock of an interrupted recording run as if it had never stopped"),
        notInterrupted },
    ZLConcernChoice { Action::StayPaused, QT_TRANSLATE_NOOP("ZLConcernChoice", "Stay Paused"), "keep",
        QT_TRANSLATE_NOOP("ZLConcernChoice", "keeps it paused"),
        QT_TRANSLATE_NOOP("ZLConcernChoice", "keep the clock of an interrupted recording paused at its last reading"),
        notInterrupted },
    ZLConcernChoice { Action::AddSleptTime, QT_TRANSLATE_NOOP("ZLConcernChoice", "Add That Time"), "addsleep",
        QT_TRANSLATE_NOOP("ZLConcernChoice", "adds that time to it and to the chapters after it"),
        QT_TRANSLATE_NOOP(
            "ZLConcernChoice", "add the time for which the computer slept to the clock and the chapters after it"),
        notSlept },
    ZLConcernChoice { Action::LeaveSleptTime, QT_TRANSLATE_NOOP("ZLConcernChoice", "Leave It Out"), "leavesleep",
        QT_TRANSLATE_NOOP("ZLConcernChoice", "leaves it"),
        QT_TRANSLATE_NOOP("ZLConcernChoice", "leave out the time for which the computer slept"), notSlept },
    ZLConcernChoice { Action::TakeRecordersTime, QT_TRANSLATE_NOOP("ZLConcernChoice", "Take the Recorder's Time"),
        "taketime", QT_TRANSLATE_NOOP("ZLConcernChoice", "sets the clock and the chapters since then to it"),
        QT_TRANSLATE_NOOP(
            "ZLConcernChoice", "set the clock, and the chapters since it differs, to the recorder's time"),
        noDifference },
    ZLConcernChoice { Action::KeepZeltasTime, QT_TRANSLATE_NOOP("ZLConcernChoice", "Keep Zelta's"), "keeptime",
        QT_TRANSLATE_NOOP("ZLConcernChoice", "leaves the clock as it is"),
        QT_TRANSLATE_NOOP("ZLConcernChoice", "leave the clock as it is though the recorder's time differs"),
        noDifference },
    ZLConcernChoice { Action::KeepMine, QT_TRANSLATE_NOOP("ZLConcernChoice", "Keep Mine"), "mine",
        QT_TRANSLATE_NOOP("ZLConcernChoice", "writes over it"),
        QT_TRANSLATE_NOOP("ZLConcernChoice", "write over what another program made of the file"), notChanged },
    ZLConcernChoice { Action::TakeTheirs, QT_TRANSLATE_NOOP("ZLConcernChoice", "Take Theirs"), "theirs",
        QT_TRANSLATE_NOOP("ZLConcernChoice", "takes it over"),
        QT_TRANSLATE_NOOP("ZLConcernChoice", "take over what another program made of the file"), notChanged },
    ZLConcernChoice { Action::KeepBoth, QT_TRANSLATE_NOOP("ZLConcernChoice", "Keep Both"), "both",
        QT_TRANSLATE_NOOP("ZLConcernChoice", "goes on in a new file"),
        QT_TRANSLATE_NOOP("ZLConcernChoice", "leave the file to the other program and go on in a new one"),
        notChanged },
    ZLConcernChoice { .action = Action::TryNow, .labelText = QT_TRANSLATE_NOOP("ZLConcernChoice", "Try Now") },
    ZLConcernChoice { .action = Action::SaveAs, .labelText = QT_TRANSLATE_NOOP("ZLConcernChoice", "Save As…") },
    ZLConcernChoice { .action = Action::Dismiss, .labelText = QT_TRANSLATE_NOOP("ZLConcernChoice", "OK") },
};

QString translated(const char* text)
{
    return QCoreApplication::translate("ZLConcernChoice", text);
}

}

QString ZLConcernChoice::label() const
{
    return translated(labelText);
}

QString ZLConcernChoice::effect() const
{
    return translated(effectText);
}

QString ZLConcernChoice::summary() const
{
    return translated(summaryText);
}

QString ZLConcernChoice::obstacle() const
{
    return translated(obstacleText);
}

std::span<const ZLConcernChoice> ZLConcernChoices::all()
{
    return concernChoices;
}

const ZLConcernChoice& ZLConcernChoices::of(ZLConcernAction action)
{
    return *std::ranges::find(concernChoices, action, &ZLConcernChoice::action);
}

const ZLConcernChoice* ZLConcernChoices::withWord(const QString& word)
{
    const auto found = std::ranges::find_if(
        concernChoices, [&word](const ZLConcernChoice& choice) { return choice.wordText && choice.word() == word; });
    return found == concernChoices.end() ? nullptr : &*found;
}
