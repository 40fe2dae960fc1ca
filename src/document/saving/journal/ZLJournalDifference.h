#pragma once

#include "document/saving/journal/ZLJournalChange.h"
#include "model/ZLChapterRecord.h"

/// A run of chapters in a list that another one takes the place of.
struct ZLChapterListDifference {
    qsizetype first = 0;
    qsizetype removedCount = 0;
    ZLChapterSnapshot inserted {};

    [[nodiscard]] ZLJournalSplice asSplice() const;
};

/// What became different in a document. It shares the chapters with it, so that it is taken in little time however many
/// they are, and its bytes may be made on any thread.
struct ZLJournalDifference {
    std::optional<ZLChapterListDifference> chapters {};
    std::optional<ZLChapterListDifference> templates {};
    std::optional<ZLExtrasDifference> extras {};
    /// See ZLJournalChange.
    double reading = 0.0;
    qint64 number = 0;
    std::optional<ZLInterruptedRecording> running {};

    /// A command does not wait for the bytes of more chapters.
    static constexpr qsizetype MostChaptersWaitedFor = 200;

    /// Whether so many chapters differ at once that a command does not wait for the bytes.
    [[nodiscard]] bool isLong() const;
    /// The record that says it.
    [[nodiscard]] QByteArray encoded() const;
};
