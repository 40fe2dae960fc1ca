#include "model/ZLChapter.h"

#include "model/ZLChapterManager.h"
#include "model/ZLStoredValue.h"
#include "model/ZLTimeText.h"

#include <QCalendar>
#include <QTimeZone>
#include <QUuid>

using namespace Qt::StringLiterals;

ZLChapter::ZLChapter() = default;

ZLChapter::ZLChapter(const QVariantMap& dictionaryRepresentation)
    : m_timeStamp(ZLStoredValue::number(dictionaryRepresentation.value(ZLChapterKey::TimeStamp)))
    , m_enabled(ZLStoredValue::boolean(dictionaryRepresentation.value(ZLChapterKey::Enabled)))
    , m_title(ZLStoredValue::text(dictionaryRepresentation.value(ZLChapterKey::Title)))
    , m_link(ZLStoredValue::text(dictionaryRepresentation.value(ZLChapterKey::Link)))
    , m_tags(ZLStoredValue::text(dictionaryRepresentation.value(ZLChapterKey::Tags)))
    , m_realDate(dictionaryRepresentation.value(ZLChapterKey::Date).toDateTime())
    , m_uuid(ZLStoredValue::text(dictionaryRepresentation.value(ZLChapterKey::UUID)))
{
    if (m_uuid.isNull())
        m_uuid = generateUUID();
}

QVariantMap ZLChapter::dictionaryRepresentation() const
{
    QVariantMap map { { ZLChapterKey::TimeStamp, m_timeStamp }, { ZLChapterKey::Enabled, m_enabled } };
    if (m_title.isNull())
        return map;
    map.insert(ZLChapterKey::Title, m_title);
    if (m_link.isNull())
        return map;
    map.insert(ZLChapterKey::Link, m_link);
    if (m_tags.isNull())
        return map;
    map.insert(ZLChapterKey::Tags, m_tags);
    if (m_realDate.isNull())
        return map;
    map.insert(ZLChapterKey::Date, m_realDate);
    if (!m_uuid.isNull())
        map.insert(ZLChapterKey::UUID, m_uuid);
    return map;
}

void ZLChapter::setTimeStamp(double seconds)
{
    m_timeStamp = seconds;
    if (m_membershipCount > 0)
        ZLChapterManager::noteTimeChangeInList();
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
    noteChange();
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

void ZLChapter::noteChange() const
{
    if (m_membershipCount > 0)
        ZLChapterManager::noteChangeInList();
}
