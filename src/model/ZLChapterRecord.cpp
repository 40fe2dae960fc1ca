#include "model/ZLChapterRecord.h"

#include <QStringList>

#include <algorithm>
#include <array>
#include <bit>

namespace {

constexpr std::size_t chapterEntryCount = 7;
/// The places of the entries in the order of their keys' texts.
constexpr std::array<std::size_t, chapterEntryCount> sortedChapterEntries { 5, 1, 3, 4, 0, 2, 6 };

const std::array<QString, chapterEntryCount>& chapterEntryKeys()
{
    static const std::array<QString, chapterEntryCount> keys { ZLChapterKey::TimeStamp, ZLChapterKey::Enabled,
        ZLChapterKey::Title, ZLChapterKey::Link, ZLChapterKey::Tags, ZLChapterKey::Date, ZLChapterKey::UUID };
    return keys;
}

/// Null and empty texts are told apart when they are stored. One text object needs no reading.
bool isSameChapterText(const QString& left, const QString& right)
{
    return left.isNull() == right.isNull() && (left.constData() == right.constData() || left == right);
}

/// By the number of entries that a chapter has.
std::array<QStringList, chapterEntryCount + 1> sortedChapterKeys()
{
    std::array<QStringList, chapterEntryCount + 1> lists;
    for (std::size_t count = 0; count < lists.size(); ++count) {
        for (const std::size_t place : sortedChapterEntries) {
            if (place < count)
                lists[count].append(chapterEntryKeys()[place]);
        }
    }
    return lists;
}

}

bool ZLChapterRecord::isSameAs(const ZLChapterRecord& other) const
{
    if (this == &other)
        return true;
    const auto isSame = isSameChapterText;
    return std::bit_cast<quint64>(other.timeStamp) == std::bit_cast<quint64>(timeStamp) && other.isEnabled == isEnabled
        && isSame(other.title, title) && isSame(other.link, link) && isSame(other.tags, tags)
        && isSame(other.uuid, uuid) && other.realDate == realDate && other.dateAsRead == dateAsRead;
}

QVariantMap ZLChapterRecord::dictionaryRepresentation() const
{
    QVariantMap map;
    for (std::size_t place = 0; place < entryCount(); ++place)
        map.insert(chapterEntryKeys()[place], entryAt(place));
    return map;
}

ZLArchivedDictionary ZLChapterRecord::archivedRepresentation() const
{
    // One list of keys for each count, which all chapters share.
    static const std::array<QStringList, chapterEntryCount + 1> sortedKeys = sortedChapterKeys();
    const std::size_t count = entryCount();
    ZLArchivedDictionary dictionary { sortedKeys[count], {} };
    dictionary.values.reserve(qsizetype(count));
    for (const std::size_t place : sortedChapterEntries) {
        if (place < count)
            dictionary.values.append(entryAt(place));
    }
    return dictionary;
}

QVariant ZLChapterRecord::entryAt(std::size_t place) const
{
    switch (place) {
    case 0:
        return timeStamp;
    case 1:
        return isEnabled;
    case 2:
        return title;
    case 3:
        return link;
    case 4:
        return tags;
    case 5:
        return dateAsRead ? QVariant::fromValue(*dateAsRead) : QVariant(realDate);
    default:
        return uuid;
    }
}

std::size_t ZLChapterRecord::entryCount() const
{
    constexpr std::size_t neverNull = 2;
    const std::array<bool, chapterEntryCount - neverNull> areNull { title.isNull(), link.isNull(), tags.isNull(),
        realDate.isNull(), uuid.isNull() };
    return neverNull + std::size_t(std::find(areNull.begin(), areNull.end(), true) - areNull.begin());
}

bool ZLChapterSnapshots::areSame(const ZLChapterSnapshot& left, const ZLChapterSnapshot& right)
{
    return std::equal(left.cbegin(), left.cend(), right.cbegin(), right.cend(),
        [](const auto& one, const auto& other) { return one->isSameAs(*other); });
}

QVariantList ZLChapterSnapshots::archivedRepresentations(const ZLChapterSnapshot& chapters)
{
    QVariantList dictionaries;
    dictionaries.reserve(chapters.size());
    for (const auto& chapter : chapters)
        dictionaries.append(QVariant::fromValue(chapter->archivedRepresentation()));
    return dictionaries;
}
