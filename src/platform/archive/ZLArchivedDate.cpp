#include "platform/archive/ZLArchivedDate.h"

#include "platform/archive/ZLBinaryPropertyList.h"

QVariant ZLArchivedDate::value(double referenceSeconds)
{
    const ZLArchivedDate exact { referenceSeconds };
    const std::optional<QDateTime> date = exact.toDateTime();
    const std::optional<double> again = date ? ZLReferenceSecondsFromDate(*date) : std::nullopt;
    return again && ZLArchivedDate { *again } == exact ? QVariant(*date) : QVariant::fromValue(exact);
}

std::optional<ZLArchivedDate> ZLArchivedDate::in(const QVariant& value)
{
    return value.typeId() == qMetaTypeId<ZLArchivedDate>() ? std::optional(value.value<ZLArchivedDate>())
                                                           : std::nullopt;
}

std::optional<QDateTime> ZLArchivedDate::toDateTime() const
{
    return ZLDateFromReferenceSeconds(referenceSeconds);
}
