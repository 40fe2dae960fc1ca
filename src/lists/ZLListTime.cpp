#include "lists/ZLListTime.h"

#include "model/ZLTimeText.h"

#include <QList>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {

bool areDigits(QStringView text, qsizetype most)
{
    return !text.isEmpty() && text.size() <= most
        && std::all_of(text.cbegin(), text.cend(), [](QChar c) { return c >= u'0' && c <= u'9'; });
}

/// A number of seconds as "SS" or "SS.fff", the fraction left as it stands.
struct SecondsField {
    QStringView whole;
    QStringView fraction;
};

std::optional<SecondsField> secondsField(QStringView text, qsizetype mostDigits)
{
    constexpr qsizetype mostDecimals = 12;
    qsizetype point = text.indexOf(u'.');
    if (point < 0)
        point = text.indexOf(u',');
    if (point < 0)
        return areDigits(text, mostDigits) ? std::optional(SecondsField { text, u"0" }) : std::nullopt;
    const SecondsField field { text.first(point), text.sliced(point + 1) };
    if (!areDigits(field.whole, mostDigits) || !areDigits(field.fraction, mostDecimals))
        return std::nullopt;
    return field;
}

/// The decimal text is read as one number, so that the result is the nearest double there is.
double joined(quint64 wholeSeconds, QStringView fraction, bool isNegative)
{
    const double seconds = QString(QString::number(wholeSeconds) + u'.' + fraction.toString()).toDouble();
    return isNegative ? -seconds : seconds;
}

QString withDecimals(std::uint64_t units, int decimals)
{
    std::uint64_t perSecond = 1;
    for (int i = 0; i < decimals; ++i)
        perSecond *= 10;
    return decimals == 0 ? QString() : u'.' + ZLTimeText::padded(units % perSecond, decimals);
}

}

std::optional<double> ZLListTime::fromClock(QStringView text, int leastFields)
{
    constexpr qsizetype mostDigits = 9;
    const bool isNegative = text.startsWith(u'-');
    const QList<QStringView> fields = (isNegative ? text.sliced(1) : text).split(u':');
    if (fields.size() < leastFields || fields.size() > 3)
        return std::nullopt;
    const auto last = secondsField(fields.constLast(), fields.size() == 1 ? mostDigits : 2);
    if (!last)
        return std::nullopt;
    quint64 seconds = 0;
    for (qsizetype i = 0; i < fields.size(); ++i) {
        const QStringView field = i + 1 == fields.size() ? last->whole : fields.at(i);
        if (!areDigits(field, i == 0 ? mostDigits : 2) || (i > 0 && field.toUInt() >= 60))
            return std::nullopt;
        seconds = seconds * 60 + field.toULongLong();
    }
    return joined(seconds, last->fraction, isNegative);
}

std::optional<double> ZLListTime::fromNumber(QStringView text)
{
    constexpr qsizetype mostDigits = 12;
    const bool isNegative = text.startsWith(u'-');
    const auto field = secondsField(isNegative ? text.sliced(1) : text, mostDigits);
    if (!field)
        return std::nullopt;
    return joined(field->whole.toULongLong(), field->fraction, isNegative);
}

std::uint64_t ZLListTime::units(double seconds, double perSecond)
{
    constexpr double tolerance = 0.001;
    constexpr double most = 9007199254740992.0;
    return ZLTimeText::truncated(std::min(seconds * perSecond + tolerance, most));
}

QString ZLListTime::clock(double seconds, int decimals)
{
    const double perSecond = std::pow(10.0, decimals);
    const std::uint64_t whole = units(seconds, perSecond);
    return ZLTimeText::hoursMinutesSeconds(whole / std::uint64_t(perSecond)) + withDecimals(whole, decimals);
}

QString ZLListTime::shortClock(double seconds)
{
    const ZLTimeParts parts = ZLTimeParts::ofMilliseconds(units(seconds, 1.0) * 1000);
    const QString secondsText = ZLTimeText::padded(parts.seconds, 2);
    if (parts.hours == 0)
        return u"%1:%2"_s.arg(parts.minutes).arg(secondsText);
    return u"%1:%2:%3"_s.arg(parts.hours).arg(ZLTimeText::padded(parts.minutes, 2), secondsText);
}

QString ZLListTime::number(double seconds, int decimals)
{
    const double perSecond = std::pow(10.0, decimals);
    const std::uint64_t whole = units(seconds, perSecond);
    return QString::number(whole / std::uint64_t(perSecond)) + withDecimals(whole, decimals);
}
