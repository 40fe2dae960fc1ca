#include "platform/archive/ZLBinaryPropertyList.h"

#include "platform/ZLUtcTime.h"
#include "platform/archive/ZLArchivedDate.h"

#include <bit>
#include <cmath>
#include <cstring>
#include <limits>

namespace {

constexpr qint64 kReferenceDateMilliseconds = 978'307'200'000;
// Seconds hold exact milliseconds in a double up to 2^51 of them; this is the round number below.
constexpr double kFarthestReferenceSeconds = 1e12;

std::optional<QVariant> integerValue(const uchar* bytes, quint64 size)
{
    if (size < 8)
        return QVariant(qlonglong(ZLReadBigEndian(bytes, size)));
    const quint64 low = ZLReadBigEndian(bytes + size - 8, 8);
    if (size == 8)
        return QVariant(qlonglong(low));
    const quint64 high = ZLReadBigEndian(bytes, 8);
    const bool lowIsNegative = low >> 63;
    if (high == 0)
        return lowIsNegative ? QVariant(qulonglong(low)) : QVariant(qlonglong(low));
    if (high == std::numeric_limits<quint64>::max() && lowIsNegative)
        return QVariant(qlonglong(low));
    return std::nullopt;
}

double realValue(const uchar* bytes, quint64 size)
{
    if (size == 4)
        return double(std::bit_cast<float>(qFromBigEndian<quint32>(bytes)));
    return std::bit_cast<double>(qFromBigEndian<quint64>(bytes));
}

QString utf16Value(const uchar* bytes, quint64 units)
{
    QString text(qsizetype(units), Qt::Uninitialized);
    qFromBigEndian<char16_t>(bytes, qsizetype(units), text.data());
    return text;
}

}

bool ZLBinaryPropertyListObject::isText(QLatin1StringView text) const
{
    return kind == Kind::Latin1Text && count == quint64(text.size()) && std::memcmp(payload, text.data(), count) == 0;
}

quint64 ZLBinaryPropertyListObject::payloadBytes() const
{
    if (kind == Kind::Utf16Text)
        return 2 * count;
    return kind == Kind::Latin1Text || kind == Kind::Data ? count : 0;
}

std::optional<QVariant> ZLBinaryPropertyListObject::scalar() const
{
    switch (kind) {
    case Kind::Null:
        return QVariant();
    case Kind::False:
        return QVariant(false);
    case Kind::True:
        return QVariant(true);
    case Kind::Integer:
        return integerValue(payload, count);
    case Kind::Real:
        return count == 4 ? QVariant(float(realValue(payload, 4))) : QVariant(realValue(payload, count));
    case Kind::Date:
        return ZLArchivedDate::value(realValue(payload, count));
    case Kind::Data:
        return QVariant(QByteArray(reinterpret_cast<const char*>(payload), qsizetype(count)));
    case Kind::Latin1Text:
        return QVariant(QString::fromLatin1(reinterpret_cast<const char*>(payload), qsizetype(count)));
    case Kind::Utf16Text:
        return QVariant(utf16Value(payload, count));
    case Kind::Invalid:
    case Kind::Uid:
    case Kind::Array:
    case Kind::Set:
    case Kind::Dictionary:
        break;
    }
    return std::nullopt;
}

std::optional<QDateTime> ZLDateFromReferenceSeconds(double seconds)
{
    // Written so that what is not a number fails the comparison.
    if (!(std::abs(seconds) <= kFarthestReferenceSeconds))
        return std::nullopt;
    return ZLUtcTime::fromMilliseconds(std::llround(seconds * 1000.0) + kReferenceDateMilliseconds);
}

std::optional<double> ZLReferenceSecondsFromDate(const QDateTime& date)
{
    if (!date.isValid())
        return std::nullopt;
    // The subtraction is done in double: a date at the end of the range must not overflow.
    const double seconds = (double(date.toMSecsSinceEpoch()) - double(kReferenceDateMilliseconds)) / 1000.0;
    if (!(std::abs(seconds) <= kFarthestReferenceSeconds))
        return std::nullopt;
    return seconds;
}
