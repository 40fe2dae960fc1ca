#include "document/saving/journal/ZLJournalDifference.h"

namespace {

qsizetype countIn(const std::optional<ZLChapterListDifference>& difference)
{
    return difference ? difference->inserted.size() : 0;
}

std::optional<ZLJournalSplice> spliceOf(const std::optional<ZLChapterListDifference>& difference)
{
    return difference ? std::optional(difference->asSplice()) : std::nullopt;
}

}

ZLJournalSplice ZLChapterListDifference::asSplice() const
{
    return {
        .first = first, .removedCount = removedCount, .inserted = ZLChapterSnapshots::archivedRepresentations(inserted)
    };
}

bool ZLJournalDifference::isLong() const
{
    const qsizetype notes = extras ? extras->notesOfChapters.size() : 0;
    return countIn(chapters) + countIn(templates) + notes > MostChaptersWaitedFor;
}

QByteArray ZLJournalDifference::encoded() const
{
    return ZLJournalChange {
        .chapters = spliceOf(chapters),
        .templates = spliceOf(templates),
        .extras = extras,
        .reading = reading,
        .number = number,
        .running = running,
    }
        .encoded();
}
