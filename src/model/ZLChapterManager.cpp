#include "model/ZLChapterManager.h"

#include <QLoggingCategory>

#include <algorithm>
#include <tuple>

namespace {

Q_LOGGING_CATEGORY(chapterListLog, "zelta.model.chapterlist", QtInfoMsg)

constexpr qsizetype InitialCapacity = 50;

ZLChapterPointer chapterFrom(const QVariant& dictionary)
{
    if (const auto* archived = ZLArchivedDictionary::in(dictionary))
        return std::make_shared<ZLChapter>(*archived);
    return std::make_shared<ZLChapter>(dictionary.toMap());
}

}

ZLChapterManager::ZLChapterManager(QObject* parent)
    : QObject(parent)
{
    m_chapters.reserve(InitialCapacity);
}

ZLChapterManager::ZLChapterManager(const QVariantList& dictionaries, QObject* parent)
    : ZLChapterManager(parent)
{
    loadChapters(dictionaries);
}

ZLChapterManager::~ZLChapterManager()
{
    releaseChapters();
}

ZLChapterSequence ZLChapterManager::chaptersIn(const QVariantList& dictionaries, Sorting sorting)
{
    ZLChapterSequence chapters;
    chapters.reserve(std::max(InitialCapacity, dictionaries.size()));
    for (const QVariant& dictionary : dictionaries)
        chapters.append(chapterFrom(dictionary));
    // A file is in order as a rule, and sorting takes memory for the whole list.
    if (sorting == Sorting::ByTime && !std::is_sorted(chapters.cbegin(), chapters.cend(), ZLChapterOrder::comesBefore))
        std::stable_sort(chapters.begin(), chapters.end(), ZLChapterOrder::comesBefore);
    return chapters;
}

void ZLChapterManager::loadChapters(const QVariantList& dictionaries)
{
    setChapters(chaptersIn(dictionaries, m_wantsSortedChapters ? Sorting::ByTime : Sorting::None));
}

QVariantList ZLChapterManager::chaptersForSaving()
{
    sortChapters();
    QVariantList dictionaries;
    dictionaries.reserve(m_chapters.size());
    for (const auto& chapter : std::as_const(m_chapters))
        dictionaries.append(chapter->dictionaryRepresentation());
    return dictionaries;
}

ZLChapterSnapshot ZLChapterManager::snapshot()
{
    sortChapters();
    ZLChapterSnapshot records;
    records.reserve(m_chapters.size());
    for (const auto& chapter : std::as_const(m_chapters))
        records.append(chapter->record());
    return records;
}

void ZLChapterManager::addChapter(ZLChapterPointer chapter)
{
    sortChapters();
    insertInOrder(chapter, m_chapters.size());
    Q_EMIT chaptersDidChange();
}

void ZLChapterManager::insertChapterAtIndex(ZLChapterPointer chapter, qsizetype index)
{
    if (index < 0 || index > m_chapters.size()) {
        qCWarning(chapterListLog) << "no chapter can be inserted at" << index << "of" << m_chapters.size();
        return;
    }
    sortChapters();
    insertInOrder(chapter, index);
    Q_EMIT chaptersDidChange();
}

void ZLChapterManager::removeChapterAtIndex(qsizetype index)
{
    if (index < 0 || index >= m_chapters.size()) {
        qCWarning(chapterListLog) << "no chapter stands at" << index << "of" << m_chapters.size();
        return;
    }
    sortChapters();
    takeChapterAt(index);
    Q_EMIT chaptersDidChange();
}

void ZLChapterManager::removeChapter(ZLChapterPointer chapter)
{
    for (qsizetype index = m_chapters.size() - 1; index >= 0; --index) {
        if (m_chapters.at(index) == chapter)
            takeChapterAt(index);
    }
    sortChapters();
    Q_EMIT chaptersDidChange();
}

void ZLChapterManager::removeLastChapter()
{
    removeChapterAtIndex(m_chapters.size() - 1);
}

ZLChapterPointer ZLChapterManager::chapterAtIndex(qsizetype index)
{
    sortChapters();
    return m_chapters.value(index);
}

ZLChapterPointer ZLChapterManager::lastChapter()
{
    return chapterAtIndex(m_chapters.size() - 1);
}

std::optional<qsizetype> ZLChapterManager::indexOfChapter(const ZLChapterPointer& chapter)
{
    if (!chapter)
        return std::nullopt;
    sortChapters();
    auto first = m_chapters.cbegin();
    auto last = m_chapters.cend();
    if (m_wantsSortedChapters)
        std::tie(first, last) = std::equal_range(first, last, chapter, ZLChapterOrder::comesBefore);
    const auto found = std::find(first, last, chapter);
    if (found == last)
        return std::nullopt;
    return found - m_chapters.cbegin();
}

ZLChapterSequence ZLChapterManager::allChapters()
{
    sortChapters();
    return m_chapters;
}

ZLChapterPointer ZLChapterManager::chapterWithUUID(const QString& uuid) const
{
    const auto hasUUID = [&uuid](const ZLChapterPointer& chapter) { return chapter->uuid() == uuid; };
    const auto found = std::find_if(m_chapters.cbegin(), m_chapters.cend(), hasUUID);
    return found == m_chapters.cend() ? nullptr : *found;
}

void ZLChapterManager::sortChapters()
{
    if (!m_wantsSortedChapters || m_order.isCertain())
        return;
    const auto move = m_order.singleMove(m_chapters);
    m_order.setCertain();
    if (move) {
        moveChapter(*move);
        return;
    }
    if (std::is_sorted(m_chapters.cbegin(), m_chapters.cend(), ZLChapterOrder::comesBefore))
        return;
    Q_EMIT willReorderChapters();
    const ZLChapterSequence previousOrder = m_chapters;
    std::stable_sort(m_chapters.begin(), m_chapters.end(), ZLChapterOrder::comesBefore);
    Q_EMIT didReorderChapters(previousOrder);
}

void ZLChapterManager::setChapters(const ZLChapterSequence& chapters)
{
    Q_EMIT willReplaceChapters();
    adoptChapters(chapters);
    Q_EMIT didReplaceChapters();
}

void ZLChapterManager::setWantsSortedChapters(bool wanted)
{
    m_wantsSortedChapters = wanted;
    m_order.doubt();
}

void ZLChapterManager::chapterDidChangeTime(const ZLChapter& chapter, double formerTime)
{
    m_order.noteTimeChange(chapter, formerTime);
}

void ZLChapterManager::chapterDidChange(const ZLChapter& chapter)
{
    Q_UNUSED(chapter);
    ++m_changeCount;
}

void ZLChapterManager::insertInOrder(const ZLChapterPointer& chapter, qsizetype wantedIndex)
{
    qsizetype index = wantedIndex;
    if (m_wantsSortedChapters) {
        // Where a stable sort would move the chapter to from the wanted index.
        const auto [first, last] =
            std::equal_range(m_chapters.cbegin(), m_chapters.cend(), chapter, ZLChapterOrder::comesBefore);
        index = std::clamp(wantedIndex, qsizetype(first - m_chapters.cbegin()), qsizetype(last - m_chapters.cbegin()));
    }
    Q_EMIT willInsertChapterAtIndex(index);
    m_chapters.insert(index, chapter);
    chapter->addObserver(*this);
    Q_EMIT didInsertChapterAtIndex(index);
}

void ZLChapterManager::takeChapterAt(qsizetype index)
{
    Q_EMIT willRemoveChapterAtIndex(index);
    m_chapters.at(index)->removeObserver(*this);
    // The chapter that goes may be the one that the order remembers.
    if (!m_order.isCertain())
        m_order.doubt();
    m_chapters.removeAt(index);
    Q_EMIT didRemoveChapterAtIndex(index);
}

void ZLChapterManager::adoptChapters(const ZLChapterSequence& chapters)
{
    releaseChapters();
    m_chapters = chapters;
    for (const auto& chapter : std::as_const(m_chapters))
        chapter->addObserver(*this);
    m_order.doubt();
}

void ZLChapterManager::releaseChapters()
{
    for (const auto& chapter : std::as_const(m_chapters))
        chapter->removeObserver(*this);
}

void ZLChapterManager::moveChapter(ZLChapterOrder::Move move)
{
    if (move.from == move.to)
        return;
    Q_EMIT willMoveChapter(move.from, move.to);
    m_chapters.move(move.from, move.to);
    Q_EMIT didMoveChapter(move.from, move.to);
}
