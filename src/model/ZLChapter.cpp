#include "model/ZLChapter.h"

#include "model/ZLChapterObserver.h"
#include "model/ZLStoredValue.h"
#include "model/ZLTimeText.h"

#include <QCalendar>
#include <QRandomGenerator>
#include <QTimeZone>
#include <QUuid>

#include <array>
#include <bit>
#include <cmath>

using namespace Qt::StringLiterals;

ZLChapter::ZLChapter()
{
    m_record->realDate = distantPast();
    m_record->uuid = generateUUID();
}

template <typename Dictionary>
ZLChapter::ZLChapter(std::in_place_t, const Dictionary& dictionary)
{
    m_record->timeStamp = ZLStoredValue::number(dictionary.value(ZLChapterKey::TimeStamp));
    m_record->isEnabled = ZLStoredValue::boolean(dictionary.value(ZLChapterKey::Enabled));
    m_record->title = ZLStoredValue::text(dictionary.value(ZLChapterKey::Title));
    m_record->link = ZLStoredValue::text(dictionary.value(ZLChapterKey::Link));
    m_record->tags = ZLStoredValue::text(dictionary.value(ZLChapterKey::Tags));
    m_record->realDate = dictionary.value(ZLChapterKey::Date).toDateTime();
    m_record->uuid = ZLStoredValue::text(dictionary.value(ZLChapterKey::UUID));
    if (const auto date = ZLArchivedDate::in(dictionary.value(ZLChapterKey::Date)))
        setDateAsRead(*date);
    if (m_record->uuid.isNull())
        m_record->uuid = generateUUID();
}

ZLChapter::ZLChapter(const QVariantMap& dictionaryRepresentation)
    : ZLChapter(std::in_place, dictionaryRepresentation)
{
}

ZLChapter::ZLChapter(const ZLArchivedDictionary& dictionaryRepresentation)
    : ZLChapter(std::in_place, dictionaryRepresentation)
{
}

ZLChapter::ZLChapter(const ZLChapterSnapshot::value_type& record)
    // Shared with a snapshot, so that it is copied before it changes.
    : m_record(const_cast<ZLChapterRecord*>(record.data()))
{
}

bool ZLChapter::isAsIn(const ZLChapterRecord& record) const
{
    return m_record->isSameAs(record);
}

void ZLChapter::setTimeStamp(double seconds)
{
    const double formerTime = std::exchange(recordToChange().timeStamp, seconds);
    for (ZLChapterObserver* observer : std::as_const(m_observers))
        observer->chapterDidChangeTime(*this, formerTime);
    noteChange();
}

void ZLChapter::setEnabled(bool enabled)
{
    recordToChange().isEnabled = enabled;
    noteChange();
}

void ZLChapter::setTitle(const QString& title)
{
    recordToChange().title = title;
    noteChange();
}

void ZLChapter::setLink(const QString& link)
{
    recordToChange().link = link;
    noteChange();
}

void ZLChapter::setTags(const QString& tags)
{
    recordToChange().tags = tags;
    noteChange();
}

void ZLChapter::setRealDate(const QDateTime& date)
{
    recordToChange().realDate = date;
    recordToChange().dateAsRead.reset();
    noteChange();
}

void ZLChapter::moveDate(double seconds)
{
    constexpr double longestMove = 9.0e15; // Milliseconds that dates can be moved by without overflow.
    const double milliseconds = seconds * 1000.0;
    if (!(std::abs(milliseconds) < longestMove))
        return;
    if (const auto date = dateAsRead())
        setDateAsRead({ date->referenceSeconds + seconds });
    else
        recordToChange().realDate = realDate().addMSecs(std::llround(milliseconds));
    noteChange();
}

void ZLChapter::setDateAsRead(const ZLArchivedDate& date)
{
    recordToChange().dateAsRead = date;
    recordToChange().realDate = date.toDateTime().value_or(distantPast());
}

void ZLChapter::setUuid(const QString& uuid)
{
    recordToChange().uuid = uuid;
    noteChange();
}

QString ZLChapter::timeString() const
{
    const bool isNegative = timeStamp() < 0.0;
    const auto parts =
        ZLTimeParts::ofMilliseconds(ZLTimeText::truncated(timeStamp() * (isNegative ? -1000.0 : 1000.0)));
    return u"%1%2:%3:%4.%5"_s.arg(isNegative ? u"-"_s : QString(), ZLTimeText::padded(parts.hours, 2),
        ZLTimeText::padded(parts.minutes, 2), ZLTimeText::padded(parts.seconds, 2),
        ZLTimeText::padded(parts.milliseconds, 3));
}

QString ZLChapter::durationToTimestamp(double seconds) const
{
    return ZLTimeText::hoursMinutesSeconds(ZLTimeText::truncated(seconds - timeStamp()));
}

QString ZLChapter::durationToNextChapter(const ZLChapter& next) const
{
    return durationToTimestamp(next.timeStamp());
}

QString ZLChapter::generateUUID()
{
    // The numbers of the processor itself take their time when thousands of chapters come at once.
    static thread_local QRandomGenerator64 random = QRandomGenerator64::securelySeeded();
    auto bytes = std::bit_cast<std::array<quint8, 16>>(std::array<quint64, 2> { random(), random() });
    // Version 4, which is random, in the usual variant.
    bytes[6] = (bytes[6] & 0x0FU) | 0x40U;
    bytes[8] = (bytes[8] & 0x3FU) | 0x80U;
    QString text = QUuid::fromRfc4122(QByteArrayView(bytes)).toString(QUuid::WithoutBraces);
    // QString::toUpper() knows all scripts, and takes five times as long as everything above.
    for (QChar& character : text) {
        if (character >= u'a')
            character.unicode() -= u'a' - u'A';
    }
    return text;
}

QDateTime ZLChapter::distantPast()
{
    // By the calendar of that time, two days before the day that ours, counted back, gives the same name: documents
    // from elsewhere hold this very moment.
    static const QDateTime moment(QDate(1, 1, 1, QCalendar(QCalendar::System::Julian)), QTime(0, 0), QTimeZone::utc());
    return moment;
}

ZLChapterRecord& ZLChapter::recordToChange()
{
    m_record.detach();
    return *m_record;
}

void ZLChapter::noteChange() const
{
    for (ZLChapterObserver* observer : m_observers)
        observer->chapterDidChange(*this);
}
