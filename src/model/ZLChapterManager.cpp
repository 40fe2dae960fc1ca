#include "model/ZLChapterManager.h"

#include <QLoggingCategory>

#include <algorithm>
#include <cmath>
#include <tuple>

namespace {

Q_LOGGING_CATEGORY(chapterListLog, "zelta.model.chapterlist", QtInfoMsg)

constexpr qsizetype InitialCapacity = 50;

/// How many times a chapter that stands in a list has changed its time, in this process.
quint64 timeChangesInLists = 0;
/// The same for any change.
quint64 anyChangesInLists = 0;

/// Earlier first. A time that is not a number comes after all others, so that the order is a strict weak one.
bool comesBefore(double left, double right)
{
    if (std::isnan(left) || std::isnan(right))
        return std::isnan(right) && !std::isnan(left);
    return left < right;
}

bool chapterComesBefore(const ZLChapterPointer& left, const ZLChapterPointer& right)
{
    return comesBefore(left->timeStamp(), right->timeStamp());
}

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

void ZLChapterManager::loadChapters(const QVariantList& dictionaries)
{
    ZLChapterSequence chapters;
    chapters.reserve(std::max(InitialCapacity, dictionaries.size()));
    for (const QVariant& dictionary : dictionaries)
        chapters.append(chapterFrom(dictionary));
    // A file is in order as a rule, and sorting takes memory for the whole list.
    if (m_wantsSortedChapters && !std::is_sorted(chapters.cbegin(), chapters.cend(), chapterComesBefore))
        std::stable_sort(chapters.begin(), chapters.end(), chapterComesBefore);
    setChapters(chapters);
}

QVariantList ZLChapterManager::chaptersForSaving(ZLDictionaryForm form)
{
    sortChapters();
    QVariantList dictionaries;
    dictionaries.reserve(m_chapters.size());
    for (const auto& chapter : std::as_const(m_chapters)) {
        dictionaries.append(form == ZLDictionaryForm::Map ? QVariant(chapter->dictionaryRepresentation())
                                                          : QVariant::fromValue(chapter->archivedRepresentation()));
    }
    return dictionaries;
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
        std::tie(first, last) = std::equal_range(first, last, chapter, chapterComesBefore);
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
    if (!m_wantsSortedChapters || m_timeChangesSeen == timeChangesInLists)
        return;
    m_timeChangesSeen = timeChangesInLists;
    if (std::is_sorted(m_chapters.cbegin(), m_chapters.cend(), chapterComesBefore))
        return;
    Q_EMIT willReorderChapters();
    const ZLChapterSequence previousOrder = m_chapters;
    std::stable_sort(m_chapters.begin(), m_chapters.end(), chapterComesBefore);
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
    doubtOrder();
}

void ZLChapterManager::noteTimeChangeInList()
{
    ++timeChangesInLists;
}

void ZLChapterManager::noteChangeInList()
{
    ++anyChangesInLists;
}

quint64 ZLChapterManager::changesInLists()
{
    return anyChangesInLists;
}

void ZLChapterManager::insertInOrder(const ZLChapterPointer& chapter, qsizetype wantedIndex)
{
    qsizetype index = wantedIndex;
    if (m_wantsSortedChapters) {
        // Where a stable sort would move the chapter to from the wanted index.
        const auto [first, last] =
            std::equal_range(m_chapters.cbegin(), m_chapters.cend(), chapter, chapterComesBefore);
        index = std::clamp(wantedIndex, qsizetype(first - m_chapters.cbegin()), qsizetype(last - m_chapters.cbegin()));
    }
    Q_EMIT willInsertChapterAtIndex(index);
    m_chapters.insert(index, chapter);
    ++chapter->m_membershipCount;
    Q_EMIT didInsertChapterAtIndex(index);
}

void ZLChapterManager::takeChapterAt(qsizetype index)
{
    Q_EMIT willRemoveChapterAtIndex(index);
    --m_chapters.at(index)->m_membershipCount;
    m_chapters.removeAt(index);
    Q_EMIT didRemoveChapterAtIndex(index);
}

void ZLChapterManager::adoptChapters(const ZLChapterSequence& chapters)
{
    releaseChapters();
    m_chapters = chapters;
    for (const auto& chapter : std::as_const(m_chapters))
        ++chapter->m_membershipCount;
    doubtOrder();
}

void ZLChapterManager::doubtOrder()
{
    m_timeChangesSeen = timeChangesInLists - 1;
}

void ZLChapterManager::releaseChapters()
{
    for (const auto& chapter : std::as_const(m_chapters))
        --chapter->m_membershipCount;
}
