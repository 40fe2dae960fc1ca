#pragma once

#include "model/ZLChapter.h"

#include <QFlags>

/// What one command made different in a document.
/// A row that comes, goes or moves announces itself, so nothing here says which one it is.
struct ZLDocumentChange {
    enum Part : unsigned {
        Rows = 1U << 0U, ///< Chapters came, went or were replaced.
        Texts = 1U << 1U, ///< Titles or links of `chapters`.
        EnabledStates = 1U << 2U, ///< Whether `chapters` take part in exports.
        Times = 1U << 3U, ///< Times of `chapters`.
        Recording = 1U << 4U, ///< The clock started or stopped, or the start beep began.
        Reading = 1U << 5U, ///< A command set the clock to another time.
        Interruption = 1U << 6U, ///< The recording that was cut off.
        Sleeps = 1U << 7U, ///< The sleeps of the computer that wait for a decision.
        Templates = 1U << 8U, ///< Which templates there are, and their order.
        TemplateTexts = 1U << 9U, ///< Titles or links of templates.
        Selection = 1U << 10U, ///< The selected row.
        AddButton = 1U << 11U, ///< What the next press of the add button does.
        EveryCell = 1U << 12U, ///< All cells of the table may read otherwise.
        Contents = 1U << 13U, ///< The file form: it is worth saving.
        Reminder = 1U << 14U, ///< Nothing, but the controllers are to be told the state once more.
        Extras = 1U << 15U, ///< What the document keeps besides, see ZLDocumentExtras.
        RecorderDifference = 1U << 16U, ///< By how much the recorder that is followed differs from the clock.
    };
    Q_DECLARE_FLAGS(Parts, Part)

    /// What a remote control shows, or what follows on a refused entry.
    static constexpr Parts concerningControllers { Rows | Texts | EnabledStates | Times | Recording | Reading
        | Templates | Selection | Reminder };
    /// What an export writes.
    static constexpr Parts concerningExports { Rows | Texts | EnabledStates | Times | Recording | Reading };
    /// What is told of `chapters`.
    static constexpr Parts inPlace { Texts | EnabledStates | Times };

    Parts parts {};
    /// Those that changed where they stand. Empty, together with a part in `inPlace`, for any of them.
    ZLChapterSequence chapters {};

    /// Whether it is about at least one of `wanted`.
    [[nodiscard]] bool concerns(Parts wanted) const { return (parts & wanted) != Parts(); }
    /// Makes both changes one.
    void add(const ZLDocumentChange& other);
};
Q_DECLARE_OPERATORS_FOR_FLAGS(ZLDocumentChange::Parts)
