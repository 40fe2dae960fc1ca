#pragma once

#include <QDateTime>
#include <QFlags>
#include <QList>
#include <QString>

#include <optional>

/// One chapter as a list of another program holds it: plain values, no chapter of a document.
struct ZLListedChapter {
    /// Seconds from the beginning of the show; negative before it.
    double start = 0.0;
    /// Texts are empty where the list has none.
    QString title {};
    QString link {};
    /// Whether the list shows the chapter, or keeps it hidden.
    bool isEnabled = true;

    /// What only a document tells: its tags, the moment at which it was set, and its UUID. Empty or invalid where that
    /// is not known.
    QString tags {};
    QDateTime date {};
    QString uuid {};

    bool operator==(const ZLListedChapter&) const = default;
};

/// Something in a list that was not understood, or not taken as it stands.
struct ZLListRemark {
    /// Counted from 1; 0 for the list as a whole.
    qsizetype line = 0;
    /// One sentence in the user's language.
    QString text {};

    bool operator==(const ZLListRemark&) const = default;
};

/// The chapters of one show, in the order in which they stand in the list.
struct ZLChapterList {
    /// Name of the show or of the episode; empty where the list has none.
    QString name {};
    QList<ZLListedChapter> chapters {};
    QList<ZLListRemark> remarks {};
};

/// What a form cannot hold. A writer puts something harmless in its place, so that its file can always be read.
enum class ZLListLimit {
    Links = 1 << 0, ///< Links are left out.
    LineBreaks = 1 << 1, ///< A line break in a text becomes a blank.
    ControlCharacters = 1 << 2, ///< A control character in a text becomes a blank.
    AngleBrackets = 1 << 3, ///< A reader takes "<…>" at the end of a title for a link.
    DoubleQuotes = 1 << 4, ///< A double quote in a text becomes a single one.
    NinetyNineChapters = 1 << 5, ///< Further chapters are left out.
};
Q_DECLARE_FLAGS(ZLListLimits, ZLListLimit)
Q_DECLARE_OPERATORS_FOR_FLAGS(ZLListLimits)

/// All that a writer may make its bytes from.
struct ZLListToWrite {
    /// In ascending order of time, none before the beginning.
    QList<ZLListedChapter> chapters {};
    /// Seconds; absent where the end of the show is not known.
    std::optional<double> end {};
    /// Name of the file without folder and extension.
    QString fileBaseName {};
    /// Of a show-notes line; empty for the usual one.
    QString linePattern {};
};
