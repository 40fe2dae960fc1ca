#include "document/editing/ZLTimeEntry.h"

#include "model/ZLStoredValue.h"

#include <QCalendar>
#include <QCoreApplication>
#include <QRegularExpression>
#include <QStringList>
#include <QTimeZone>

#include <algorithm>
#include <cstdlib>

using namespace Qt::StringLiterals;

namespace {

/// The whole number that a text begins with, after blanks and a sign; 0 without one, and the nearest one that fits.
double leadingInteger(QStringView text)
{
    qsizetype position = 0;
    while (position < text.size() && text[position].isSpace())
        ++position;
    const bool isNegative = position < text.size() && text[position] == u'-';
    if (position < text.size() && (text[position] == u'-' || text[position] == u'+'))
        ++position;
    double value = 0.0;
    for (; position < text.size() && text[position] >= u'0' && text[position] <= u'9'; ++position)
        value = value * 10.0 + (text[position].unicode() - u'0');
    constexpr double largestExactInteger = 9007199254740992.0;
    value = std::min(value, largestExactInteger);
    return isNegative ? -value : value;
}

/// The day on which the Gregorian calendar took over from the Julian one, which tells all dates before.
QDate firstGregorianDay()
{
    return QDate(1582, 10, 15);
}

QCalendar::System calendarOfDay(QDate day)
{
    return day < firstGregorianDay() ? QCalendar::System::Julian : QCalendar::System::Gregorian;
}

/// The day that had this name when it came; an invalid date when none had it.
QDate historicalDay(int year, int month, int day)
{
    for (const auto calendar : { QCalendar::System::Gregorian, QCalendar::System::Julian }) {
        const QDate date(year, month, day, QCalendar(calendar));
        if (date.isValid() && calendarOfDay(date) == calendar)
            return date;
    }
    return {};
}

QDateTime referenceDate()
{
    return QDateTime(QDate(2001, 1, 1), QTime(0, 0), QTimeZone::utc());
}

}

QString ZLTimeEntry::form()
{
    return QCoreApplication::translate("ZLTimeEntry", "HH:MM:SS.mmm");
}

QString ZLTimeEntry::dateForm()
{
    return QCoreApplication::translate("ZLTimeEntry", "HH:MM:SS.mmm YYYY-MM-DD");
}

std::optional<double> ZLTimeEntry::secondsFromText(const QString& text)
{
    const QStringList parts = text.split(u':');
    if (parts.size() != 3)
        return std::nullopt;
    const QStringList secondPieces = parts[2].split(u'.');
    if (secondPieces.size() != 2)
        return std::nullopt;
    const double hours = leadingInteger(parts[0]);
    const bool isNegative = parts[0].startsWith(u'-');
    const double minutes = leadingInteger(parts[1]);
    const float fraction = float(leadingInteger(secondPieces[1])) / 1000.0F;
    const double unsignedHours = isNegative ? -hours : hours;
    const double seconds =
        double(fraction) + (leadingInteger(secondPieces[0]) + (minutes + unsignedHours * 60.0) * 60.0);
    return isNegative ? -seconds : seconds;
}

QString ZLTimeEntry::textFromDate(const QDateTime& date)
{
    if (!date.isValid())
        return {};
    const QDateTime local = date.toLocalTime();
    const QCalendar calendar(calendarOfDay(local.date()));
    // The year is that of its era: the last one before the year 1 is 1, too.
    const QString year = QString::number(std::abs(local.date().year(calendar))).rightJustified(3, u'0');
    return local.toString(u"HH:mm:ss.zzz "_s) + year + local.toString(u"-MM-dd"_s, calendar);
}

QDateTime ZLTimeEntry::dateFromText(const QString& text)
{
    static const QRegularExpression shape(
        uR"(^\s*(\d{1,2}):(\d{1,2}):(\d{1,2})\.(\d{1,9}) +(\d{1,6})-(\d{1,2})-(\d{1,2})\s*$)"_s);
    const auto match = shape.match(text);
    if (!match.hasMatch())
        return referenceDate();
    const auto number = [&match](int group) { return match.captured(group).toInt(); };
    const int milliseconds = match.captured(4).leftJustified(3, u'0', true).toInt();
    const QTime time(number(1), number(2), number(3), milliseconds);
    const QDate day = historicalDay(number(5), number(6), number(7));
    const QDateTime date(day, time);
    // An impossible time of a possible day would be taken as its midnight, and one in an hour that the clocks skip as
    // one of the hour beside it.
    return date.isValid() && date.date() == day && date.time() == time ? date : referenceDate();
}

float ZLTimeEntry::millisecondsFromText(const QString& text)
{
    return float(ZLStoredValue::number(text));
}
