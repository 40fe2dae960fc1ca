#pragma once

#include <QDateTime>
#include <QVariant>

#include <bit>
#include <optional>

/// A date as an archive stores it, in seconds since the first moment of 2001, UTC. It stands for those dates that no
/// QDateTime says: with a part below the millisecond, or so far away (see ZLDateFromReferenceSeconds()) that there is
/// none.
struct ZLArchivedDate {
    double referenceSeconds = 0.0;

    /// By bits: what is no number is the same as itself.
    bool operator==(const ZLArchivedDate& other) const
    {
        return std::bit_cast<quint64>(referenceSeconds) == std::bit_cast<quint64>(other.referenceSeconds);
    }

    /// A QDateTime that is stored as the same seconds, else a ZLArchivedDate.
    [[nodiscard]] static QVariant value(double referenceSeconds);
    /// What `value` holds if it is a ZLArchivedDate.
    [[nodiscard]] static std::optional<ZLArchivedDate> in(const QVariant& value);
    /// To the millisecond; absent for one that is too far away.
    [[nodiscard]] std::optional<QDateTime> toDateTime() const;
};
Q_DECLARE_METATYPE(ZLArchivedDate)
