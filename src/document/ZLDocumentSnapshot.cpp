#include "document/ZLDocumentSnapshot.h"

#include "document/ZLDocumentFile.h"

#include <algorithm>
#include <bit>

namespace {

/// Notes of chapters that are not in the list are in no file either.
bool areSameNotes(const ZLDocumentSnapshot& left, const ZLDocumentSnapshot& right)
{
    const auto& one = left.extras.notesOfChapters;
    const auto& other = right.extras.notesOfChapters;
    return one == other || std::ranges::all_of(left.chapters, [&](const auto& chapter) {
        return one.value(chapter->uuid) == other.value(chapter->uuid);
    });
}

}

bool ZLDocumentSnapshot::isSameAs(const ZLDocumentSnapshot& other) const
{
    return std::bit_cast<quint64>(duration) == std::bit_cast<quint64>(other.duration)
        && ZLChapterSnapshots::areSame(chapters, other.chapters)
        && ZLChapterSnapshots::areSame(templates, other.templates) && extras.values == other.extras.values
        && areSameNotes(*this, other);
}

QByteArray ZLDocumentSnapshot::encoded() const
{
    return ZLDocumentFile::encode({
        .chapters = ZLChapterSnapshots::archivedRepresentations(chapters),
        .duration = duration,
        .templates = ZLChapterSnapshots::archivedRepresentations(templates),
        .extras = extras.whole(),
    });
}
