#include "document/saving/ZLChapterListShadow.h"

#include <algorithm>
#include <bit>
#include <utility>

namespace {

/// Null and empty texts are told apart when they are stored. One text object needs no reading.
bool isSameText(const QString& left, const QString& right)
{
    return left.isNull() == right.isNull() && (left.constData() == right.constData() || left == right);
}

}

ZLChapterListShadow::ZLChapterListShadow(const ZLChapterManager& chapters)
    : m_manager(chapters)
{
    connect(&chapters, &ZLChapterManager::didInsertChapterAtIndex, this, &ZLChapterListShadow::noteInsertion);
    connect(&chapters, &ZLChapterManager::didRemoveChapterAtIndex, this, &ZLChapterListShadow::noteRemoval);
    connect(&chapters, &ZLChapterManager::didMoveChapter, this, &ZLChapterListShadow::doubtEverything);
    connect(&chapters, &ZLChapterManager::didReorderChapters, this, &ZLChapterListShadow::doubtEverything);
    connect(&chapters, &ZLChapterManager::didReplaceChapters, this, &ZLChapterListShadow::doubtEverything);
}

ZLChapterListShadow::Entry ZLChapterListShadow::Entry::of(const ZLChapter& chapter)
{
    return { chapter.timeStamp(), chapter.isEnabled(), chapter.title(), chapter.link(), chapter.tags(),
        chapter.realDate(), chapter.dateAsRead(), chapter.uuid() };
}

bool ZLChapterListShadow::Entry::matches(const ZLChapter& chapter) const
{
    // By bits: a time that is no number is not equal to itself.
    return std::bit_cast<quint64>(timeStamp) == std::bit_cast<quint64>(chapter.timeStamp())
        && isEnabled == chapter.isEnabled() && isSameText(title, chapter.title()) && isSameText(link, chapter.link())
        && isSameText(tags, chapter.tags()) && isSameText(uuid, chapter.uuid()) && realDate == chapter.realDate()
        && dateAsRead == chapter.dateAsRead();
}

std::optional<ZLJournalSplice> ZLChapterListShadow::takeDifference()
{
    if (m_changesSeen != m_manager.changeCount())
        doubtEverything();
    const ZLChapterSequence& chapters = m_manager.chapters();
    const qsizetype shorter = std::min(m_entries.size(), chapters.size());
    qsizetype first = std::min(std::exchange(m_sameAtFront, chapters.size()), shorter);
    while (first < shorter && m_entries.at(first).matches(*chapters.at(first)))
        ++first;
    qsizetype last = std::min(std::exchange(m_sameAtBack, chapters.size()), shorter - first);
    while (last < shorter - first
        && m_entries.at(m_entries.size() - 1 - last).matches(*chapters.at(chapters.size() - 1 - last)))
        ++last;
    m_changesSeen = m_manager.changeCount();
    ZLJournalSplice splice { .first = first, .removedCount = m_entries.size() - first - last };
    const qsizetype insertedCount = chapters.size() - first - last;
    if (splice.removedCount == 0 && insertedCount == 0)
        return std::nullopt;
    m_entries.remove(first, splice.removedCount);
    m_entries.insert(first, insertedCount, Entry());
    for (qsizetype index = first; index < first + insertedCount; ++index) {
        m_entries[index] = Entry::of(*chapters.at(index));
        splice.inserted.append(chapters.at(index)->dictionaryRepresentation());
    }
    return splice;
}

void ZLChapterListShadow::noteInsertion(qsizetype index)
{
    m_sameAtFront = std::min(m_sameAtFront, index);
    m_sameAtBack = std::min(m_sameAtBack, m_manager.count() - 1 - index);
}

void ZLChapterListShadow::noteRemoval(qsizetype index)
{
    m_sameAtFront = std::min(m_sameAtFront, index);
    m_sameAtBack = std::min(m_sameAtBack, m_manager.count() - index);
}

void ZLChapterListShadow::doubtEverything()
{
    m_sameAtFront = 0;
    m_sameAtBack = 0;
}
