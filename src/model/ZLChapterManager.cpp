#include "model/ZLChapterManager.h"

#include "model/ZLStoredChapters.h"
#include "platform/ZLLateRelease.h"

#include <QLoggingCategory>
#include <QSet>

#include <algorithm>
#include <tuple>
#include <utility>

namespace {

Q_LOGGING_CATEGORY(chapterListLog, "zelta.model.chapterlist", QtInfoMsg)

constexpr qsizetype InitialCapacity = 50;

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
    ZLLateRelease::of(std::move(m_chapters));
}

void ZLChapterManager::loadChapters(const QVariantList& dictionaries)
{
    using Sorting = ZLStoredChapters::Sorting;
    setChapters(ZLStoredChapters::in(dictionaries, m_wantsSortedChapters ? Sorting::ByTime : Sorting::None));
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

void ZLChapterManager::exchangeChapters(const ZLChapterSequence& removed, const ZLChapterSequence& added)
{
    sortChapters();
    Q_EMIT willReplaceChapters();
    const SameEnds before = takeOut(removed);
    const SameEnds after = takeIn(added);
    Q_EMIT didReplaceChapters(std::min(before.atFront, after.atFront), std::min(before.atBack, after.atBack));
}

void ZLChapterManager::moveTimes(double seconds)
{
    sortChapters();
    bool isInOrder = true;
    for (qsizetype index = 0; index < m_chapters.size(); ++index) {
        fetchAhead(index);
        const ZLChapterPointer& chapter = m_chapters.at(index);
        chapter->setTimeStamp(chapter->timeStamp() + seconds);
        isInOrder = isInOrder && (index == 0 || !ZLChapterOrder::comesBefore(chapter, m_chapters.at(index - 1)));
    }
    if (isInOrder)
        m_order.setCertain();
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
    const SameEnds same = adoptChapters(chapters);
    Q_EMIT didReplaceChapters(same.atFront, same.atBack);
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

ZLChapterManager::SameEnds ZLChapterManager::sameEndsAs(const ZLChapterSequence& chapters) const
{
    const qsizetype shorter = std::min(m_chapters.size(), chapters.size());
    const auto front = std::mismatch(m_chapters.cbegin(), m_chapters.cbegin() + shorter, chapters.cbegin()).first;
    const qsizetype atFront = front - m_chapters.cbegin();
    const auto back =
        std::mismatch(m_chapters.crbegin(), m_chapters.crbegin() + (shorter - atFront), chapters.crbegin()).first;
    return { atFront, back - m_chapters.crbegin() };
}

ZLChapterManager::SameEnds ZLChapterManager::adoptChapters(const ZLChapterSequence& chapters)
{
    // Only the chapters that come or go are touched: a long list takes its time to go through.
    const SameEnds same = sameEndsAs(chapters);
    for (qsizetype index = same.atFront; index < m_chapters.size() - same.atBack; ++index)
        m_chapters.at(index)->removeObserver(*this);
    ZLLateRelease::of(std::exchange(m_chapters, chapters));
    for (qsizetype index = same.atFront; index < m_chapters.size() - same.atBack; ++index)
        m_chapters.at(index)->addObserver(*this);
    if (!m_order.isCertain() || !isInOrderBetween(same))
        m_order.doubt();
    return same;
}

ZLChapterManager::SameEnds ZLChapterManager::takeOut(const ZLChapterSequence& chapters)
{
    QSet<const ZLChapter*> going;
    for (const auto& chapter : chapters)
        going.insert(chapter.get());
    const auto goes = [&going](const ZLChapterPointer& chapter) { return going.contains(chapter.get()); };
    const SameEnds same { std::find_if(m_chapters.cbegin(), m_chapters.cend(), goes) - m_chapters.cbegin(),
        std::find_if(m_chapters.crbegin(), m_chapters.crend(), goes) - m_chapters.crbegin() };
    if (same.atFront == m_chapters.size())
        return same;
    for (const auto& chapter : std::as_const(m_chapters)) {
        if (goes(chapter))
            chapter->removeObserver(*this);
    }
    m_chapters.removeIf(goes);
    return same;
}

ZLChapterManager::SameEnds ZLChapterManager::takeIn(ZLChapterSequence chapters)
{
    const qsizetype former = m_chapters.size();
    if (m_wantsSortedChapters)
        std::stable_sort(chapters.begin(), chapters.end(), ZLChapterOrder::comesBefore);
    for (const auto& chapter : std::as_const(chapters))
        chapter->addObserver(*this);
    m_chapters.append(chapters);
    return chapters.isEmpty() ? SameEnds { former, former } : mergeChaptersFrom(former);
}

ZLChapterManager::SameEnds ZLChapterManager::mergeChaptersFrom(qsizetype first)
{
    const auto begin = m_chapters.begin();
    const auto middle = begin + first;
    if (!m_wantsSortedChapters)
        return { first, 0 };
    const auto place = std::upper_bound(begin, middle, *middle, ZLChapterOrder::comesBefore);
    const auto rest = std::upper_bound(place, middle, m_chapters.constLast(), ZLChapterOrder::comesBefore);
    const SameEnds same { place - begin, middle - rest };
    std::inplace_merge(place, middle, m_chapters.end(), ZLChapterOrder::comesBefore);
    return same;
}

void ZLChapterManager::fetchAhead(qsizetype index) const
{
    constexpr qsizetype toChapter = 12;
    constexpr qsizetype toRecord = 8;
    constexpr qsizetype toTexts = 4;
    const qsizetype count = m_chapters.size();
    if (index + toChapter < count)
        __builtin_prefetch(m_chapters.at(index + toChapter).get());
    if (index + toRecord < count)
        __builtin_prefetch(&m_chapters.at(index + toRecord)->uuid());
    if (index + toTexts < count) {
        __builtin_prefetch(m_chapters.at(index + toTexts)->uuid().constData());
        __builtin_prefetch(m_chapters.at(index + toTexts)->title().constData());
    }
}

bool ZLChapterManager::isInOrderBetween(const SameEnds& ends) const
{
    const auto first = m_chapters.cbegin() + std::max<qsizetype>(ends.atFront - 1, 0);
    const auto last = m_chapters.cend() - std::max<qsizetype>(ends.atBack - 1, 0);
    return std::is_sorted(first, last, ZLChapterOrder::comesBefore);
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
