#pragma once

#include <QByteArrayView>
#include <QDateTime>
#include <QString>
#include <QVariant>
#include <QtEndian>

#include <optional>

/// A big-endian unsigned integer of 1 to 8 bytes. Reading a file consists of little else, hence the usual sizes apart.
inline quint64 ZLReadBigEndian(const uchar* bytes, quint64 size)
{
    switch (size) {
    case 1:
        return bytes[0];
    case 2:
        return qFromBigEndian<quint16>(bytes);
    case 3:
        return quint64(qFromBigEndian<quint16>(bytes)) << 8 | bytes[2];
    case 4:
        return qFromBigEndian<quint32>(bytes);
    case 8:
        return qFromBigEndian<quint64>(bytes);
    default:
        break;
    }
    quint64 value = 0;
    for (quint64 index = 0; index < size; ++index)
        value = value << 8 | bytes[index];
    return value;
}

/// One object of a binary property list as it lies in the file: what it is and where its bytes stand. A view: it is
/// valid as long as the bytes that were opened.
struct ZLBinaryPropertyListObject {
    enum class Kind : quint8 {
        Invalid, ///< No object can start there.
        Null,
        False,
        True,
        Integer,
        Real,
        Date,
        Data,
        Latin1Text,
        Utf16Text,
        Uid,
        Array,
        Set,
        Dictionary,
    };

    Kind kind = Kind::Invalid;
    /// Bytes of an integer, real, date, UID, data or Latin-1 text; units of UTF-16 text; elements of a collection,
    /// pairs of a dictionary.
    quint64 count = 0;
    const uchar* payload = nullptr;

    [[nodiscard]] bool isText() const { return kind == Kind::Latin1Text || kind == Kind::Utf16Text; }
    [[nodiscard]] bool isText(QLatin1StringView text) const;
    /// Bytes of a text or data value in the file, 0 for every other kind.
    [[nodiscard]] quint64 payloadBytes() const;
    /// The value of a UID, or nothing for another kind.
    [[nodiscard]] std::optional<quint64> uid() const
    {
        return kind == Kind::Uid ? std::optional(ZLReadBigEndian(payload, count)) : std::nullopt;
    }
    /// The value of a number (bool, qlonglong, ulonglong above its range, float, double), a date (QDateTime, UTC, or
    /// ZLArchivedDate), data (QByteArray), text (QString) or null (invalid QVariant). Nothing for a collection, a UID
    /// and an integer of more than 64 bits.
    [[nodiscard]] std::optional<QVariant> scalar() const;
};

/// Dates are stored as seconds since the first moment of 2001, UTC. They keep milliseconds within about 31,000 years on
/// both sides of it; beyond (and for what is no number) there is no date.
std::optional<QDateTime> ZLDateFromReferenceSeconds(double seconds);
std::optional<double> ZLReferenceSecondsFromDate(const QDateTime& date);
