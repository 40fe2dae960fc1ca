#pragma once

#include "document/recording/ZLInterruptedRecording.h"
#include "document/shared/ZLDocumentExtras.h"
#include "platform/ZLResult.h"

#include <QByteArray>
#include <QVariantList>

#include <optional>

/// A run of chapters that another one takes the place of.
struct ZLJournalSplice {
    qsizetype first = 0;
    qsizetype removedCount = 0;
    /// Chapter dictionaries of either form when written, maps when read.
    QVariantList inserted {};
};

/// What a change record says: only that which differs, but the clock always.
struct ZLJournalChange {
    std::optional<ZLJournalSplice> chapters {};
    std::optional<ZLJournalSplice> templates {};
    std::optional<ZLExtrasDifference> extras {};
    /// Seconds of recorded time at that moment.
    double reading = 0.0;
    /// One more than that of the change before, in a journal that is begun anew too. 0 in journals of older versions.
    qint64 number = 0;
    /// Present while the clock runs, and while an interruption waits for a decision.
    std::optional<ZLInterruptedRecording> running {};

    [[nodiscard]] QByteArray encoded() const;
    [[nodiscard]] static ZLResult<ZLJournalChange> decoded(QByteArrayView bytes);
};
