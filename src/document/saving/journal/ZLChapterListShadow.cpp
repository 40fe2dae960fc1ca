#include "document/saving/journal/ZLChapterListShadow.h"

#include "platform/ZLLateRelease.h"

#include <algorithm>
#include <utility>

ZLChapterListShadow::ZLChapterListShadow(const ZLChapterManager& chapters)
    : m_manager(chapters)
{
    connect(&chapters, &ZLChapterManager::didInsertChapterAtIndex, this, &ZLChapterListShadow::noteInsertion);
    connect(&chapters, &ZLChapterManager::didRemoveChapterAtIndex, this, &ZLChapterListShadow::noteRemoval);
    connect(&chapters, &ZLChapterManager::didMoveChapter, this, &ZLChapterListShadow::doubtEverything);
    connect(&chapters, &ZLChapterManager::didReorderChapters, this, &ZLChapterListShadow::doubtEverything);
    connect(&chapters, &ZLChapterManager::didReplaceChapters, this, &ZLChapterListShadow::noteReplacement);
}

ZLChapterListShadow::~ZLChapterListShadow()
{
    ZLLateRelease::of(std::move(m_entries));
}

std::optional<ZLChapterListDifference> ZLChapterListShadow::takeDifference()
{
    if (m_changesSeen != m_manager.changeCount())
        doubtEverything();
    const ZLChapterSequence& chapters = m_manager.chapters();
    const qsizetype shorter = std::min(m_entries.size(), chapters.size());
    qsizetype first = std::min(std::exchange(m_sameAtFront, chapters.size()), shorter);
    while (first < shorter && chapters.at(first)->isAsIn(*m_entries.at(first)))
        ++first;
    qsizetype last = std::min(std::exchange(m_sameAtBack, chapters.size()), shorter - first);
    while (last < shorter - first
        && chapters.at(chapters.size() - 1 - last)->isAsIn(*m_entries.at(m_entries.size() - 1 - last)))
        ++last;
    m_changesSeen = m_manager.changeCount();
    ZLChapterListDifference difference { .first = first, .removedCount = m_entries.size() - first - last };
    const qsizetype insertedCount = chapters.size() - first - last;
    if (difference.removedCount == 0 && insertedCount == 0)
        return std::nullopt;
    m_entries.remove(first, difference.removedCount);
    m_entries.insert(first, insertedCount, {});
    difference.inserted.reserve(insertedCount);
    for (qsizetype index = first; index < first + insertedCount; ++index) {
        m_entries[index] = chapters.at(index)->record();
        difference.inserted.append(m_entries.at(index));
    }
    return difference;
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

void ZLChapterListShadow::noteReplacement(qsizetype sameAtFront, qsizetype sameAtBack)
{
    m_sameAtFront = std::min(m_sameAtFront, sameAtFront);
    m_sameAtBack = std::min(m_sameAtBack, sameAtBack);
}

void ZLChapterListShadow::doubtEverything()
{
    m_sameAtFront = 0;
    m_sameAtBack = 0;
}
