#include "app/ZLChapterChanges.h"

#include <algorithm>
#include <utility>

namespace {

QList<ZLChapterChanges::Row> orderedByIndex(QList<ZLChapterChanges::Row> rows)
{
    std::ranges::sort(rows, {}, &ZLChapterChanges::Row::index);
    return rows;
}

}

ZLChapterChanges::ZLChapterChanges(ZLChapterManager& manager)
    : m_manager(manager)
{
    connect(&manager, &ZLChapterManager::didInsertChapterAtIndex, this,
        [this](qsizetype index) { noteAddition(m_manager.chapters().at(index)); });
    connect(&manager, &ZLChapterManager::willRemoveChapterAtIndex, this, &ZLChapterChanges::noteRemoval);
    connect(&manager, &ZLChapterManager::willReplaceChapters, this, &ZLChapterChanges::noteRemovalOfAll);
    connect(&manager, &ZLChapterManager::didReplaceChapters, this, &ZLChapterChanges::noteAdditionOfAll);
}

QList<ZLChapterChanges::Row> ZLChapterChanges::takeAdded()
{
    QList<Row> rows;
    const auto chapters = std::exchange(m_added, {});
    for (const ZLChapterPointer& chapter : chapters)
        rows.append({ m_manager.indexOfChapter(chapter).value_or(0), chapter });
    return orderedByIndex(std::move(rows));
}

QList<ZLChapterChanges::Row> ZLChapterChanges::takeRemoved()
{
    QList<Row> rows;
    const auto removed = std::exchange(m_removed, {});
    for (auto entry = removed.cbegin(); entry != removed.cend(); ++entry)
        rows.append({ entry.value(), entry.key() });
    return orderedByIndex(std::move(rows));
}

void ZLChapterChanges::noteAddition(const ZLChapterPointer& chapter)
{
    if (!m_removed.remove(chapter))
        m_added.insert(chapter);
}

void ZLChapterChanges::noteRemoval(qsizetype index)
{
    const ZLChapterPointer& chapter = m_manager.chapters().at(index);
    if (!m_added.remove(chapter))
        m_removed.insert(chapter, index);
}

void ZLChapterChanges::noteRemovalOfAll()
{
    for (qsizetype index = 0; index < m_manager.count(); ++index)
        noteRemoval(index);
}

void ZLChapterChanges::noteAdditionOfAll()
{
    for (const ZLChapterPointer& chapter : m_manager.chapters())
        noteAddition(chapter);
}
