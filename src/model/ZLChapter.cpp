#include "model/ZLChapter.h"

#include "model/ZLChapterObserver.h"
#include "model/ZLStoredValue.h"
#include "model/ZLTimeText.h"

#include <QCalendar>
#include <QTimeZone>
#include <QUuid>

#include <algorithm>
#include <array>
#include <cmath>

using namespace Qt::StringLiterals;

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

ZLChapter::ZLChapter() = default;

template <typename Dictionary>
ZLChapter::ZLChapter(std::in_place_t, const Dictionary& dictionary)
    : m_timeStamp(ZLStoredValue::number(dictionary.value(ZLChapterKey::TimeStamp)))
    , m_enabled(ZLStoredValue::boolean(dictionary.value(ZLChapterKey::Enabled)))
    , m_title(ZLStoredValue::text(dictionary.value(ZLChapterKey::Title)))
    , m_link(ZLStoredValue::text(dictionary.value(ZLChapterKey::Link)))
    , m_tags(ZLStoredValue::text(dictionary.value(ZLChapterKey::Tags)))
    , m_realDate(dictionary.value(ZLChapterKey::Date).toDateTime())
    , m_uuid(ZLStoredValue::text(dictionary.value(ZLChapterKey::UUID)))
{
    if (const auto date = ZLArchivedDate::in(dictionary.value(ZLChapterKey::Date)))
        setDateAsRead(*date);
    if (m_uuid.isNull())
        m_uuid = generateUUID();
}

ZLChapter::ZLChapter(const QVariantMap& dictionaryRepresentation)
    : ZLChapter(std::in_place, dictionaryRepresentation)
{
}

ZLChapter::ZLChapter(const ZLArchivedDictionary& dictionaryRepresentation)
    : ZLChapter(std::in_place, dictionaryRepresentation)
{
}

QVariantMap ZLChapter::dictionaryRepresentation() const
{
    QVariantMap map;
    for (std::size_t place = 0; place < entryCount(); ++place)
        map.insert(chapterEntryKeys()[place], entryAt(place));
    return map;
}

ZLArchivedDictionary ZLChapter::archivedRepresentation() const
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

void ZLChapter::setTimeStamp(double seconds)
{
    const double formerTime = std::exchange(m_timeStamp, seconds);
    for (ZLChapterObserver* observer : std::as_const(m_observers))
        observer->chapterDidChangeTime(*this, formerTime);
    noteChange();
}

void ZLChapter::setEnabled(bool enabled)
{
    m_enabled = enabled;
    noteChange();
}

void ZLChapter::setTitle(const QString& title)
{
    m_title = title;
    noteChange();
}

void ZLChapter::setLink(const QString& link)
{
    m_link = link;
    noteChange();
}

void ZLChapter::setTags(const QString& tags)
{
    m_tags = tags;
    noteChange();
}

void ZLChapter::setRealDate(const QDateTime& date)
{
    m_realDate = date;
    m_dateAsRead.reset();
    noteChange();
}

void ZLChapter::moveDate(double seconds)
{
    constexpr double longestMove = 9.0e15; // Milliseconds that dates can be moved by without overflow.
    const double milliseconds = seconds * 1000.0;
    if (!(std::abs(milliseconds) < longestMove))
        return;
    if (m_dateAsRead)
        setDateAsRead({ m_dateAsRead->referenceSeconds + seconds });
    else
        m_realDate = m_realDate.addMSecs(std::llround(milliseconds));
    noteChange();
}

void ZLChapter::setDateAsRead(const ZLArchivedDate& date)
{
    m_dateAsRead = date;
    m_realDate = date.toDateTime().value_or(distantPast());
}

void ZLChapter::setUuid(const QString& uuid)
{
    m_uuid = uuid;
    noteChange();
}

QString ZLChapter::timeString() const
{
    const bool isNegative = m_timeStamp < 0.0;
    const auto parts =
        ZLTimeParts::ofMilliseconds(ZLTimeText::truncated(m_timeStamp * (isNegative ? -1000.0 : 1000.0)));
    return u"%1%2:%3:%4.%5"_s.arg(isNegative ? u"-"_s : QString(), ZLTimeText::padded(parts.hours, 2),
        ZLTimeText::padded(parts.minutes, 2), ZLTimeText::padded(parts.seconds, 2),
        ZLTimeText::padded(parts.milliseconds, 3));
}

QString ZLChapter::durationToTimestamp(double seconds) const
{
    return ZLTimeText::hoursMinutesSeconds(ZLTimeText::truncated(seconds - m_timeStamp));
}

QString ZLChapter::durationToNextChapter(const ZLChapter& next) const
{
    return durationToTimestamp(next.timeStamp());
}

QString ZLChapter::generateUUID()
{
    return QUuid::createUuid().toString(QUuid::WithoutBraces).toUpper();
}

QDateTime ZLChapter::distantPast()
{
    // By the calendar of that time, two days before the day that ours, counted back, gives the same name: documents
    // from elsewhere hold this very moment.
    static const QDateTime moment(QDate(1, 1, 1, QCalendar(QCalendar::System::Julian)), QTime(0, 0), QTimeZone::utc());
    return moment;
}

QVariant ZLChapter::entryAt(std::size_t place) const
{
    switch (place) {
    case 0:
        return m_timeStamp;
    case 1:
        return m_enabled;
    case 2:
        return m_title;
    case 3:
        return m_link;
    case 4:
        return m_tags;
    case 5:
        return m_dateAsRead ? QVariant::fromValue(*m_dateAsRead) : QVariant(m_realDate);
    default:
        return m_uuid;
    }
}

std::size_t ZLChapter::entryCount() const
{
    constexpr std::size_t neverNull = 2;
    const std::array<bool, chapterEntryCount - neverNull> areNull { m_title.isNull(), m_link.isNull(), m_tags.isNull(),
        m_realDate.isNull(), m_uuid.isNull() };
    return neverNull + std::size_t(std::find(areNull.begin(), areNull.end(), true) - areNull.begin());
}

void ZLChapter::noteChange() const
{
    for (ZLChapterObserver* observer : m_observers)
        observer->chapterDidChange(*this);
}
