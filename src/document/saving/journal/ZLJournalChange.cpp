#include "document/saving/journal/ZLJournalChange.h"

#include "platform/ZLUtcTime.h"
#include "platform/archive/ZLKeyedArchiver.h"
#include "platform/archive/ZLKeyedUnarchiver.h"

#include <QVariantMap>

using namespace Qt::StringLiterals;

namespace {

QVariantMap archivedSplice(const ZLJournalSplice& splice)
{
    return { { u"First"_s, qlonglong(splice.first) }, { u"Removed"_s, qlonglong(splice.removedCount) },
        { u"Inserted"_s, splice.inserted } };
}

/// What is gone is named apart: in an archive, a key without a value may be one of the file.
QVariantMap archivedExtras(const ZLExtrasDifference& extras)
{
    QVariantMap values;
    QVariantList gone;
    for (auto entry = extras.values.cbegin(); entry != extras.values.cend(); ++entry) {
        if (entry.value().isValid())
            values.insert(entry.key(), entry.value());
        else
            gone.append(entry.key());
    }
    return { { u"Values"_s, values }, { u"Gone"_s, gone }, { u"Notes"_s, extras.notesOfChapters } };
}

std::optional<ZLExtrasDifference> unarchivedExtras(const QVariant& value)
{
    if (value.typeId() != QMetaType::QVariantMap)
        return std::nullopt;
    const QVariantMap map = value.toMap();
    ZLExtrasDifference extras { .values = map.value(u"Values"_s).toMap(),
        .notesOfChapters = map.value(u"Notes"_s).toMap() };
    const QVariantList gone = map.value(u"Gone"_s).toList();
    for (const QVariant& key : gone)
        extras.values.insert(key.toString(), QVariant());
    return extras;
}

std::optional<ZLJournalSplice> unarchivedSplice(const QVariant& value)
{
    if (value.typeId() != QMetaType::QVariantMap)
        return std::nullopt;
    const QVariantMap map = value.toMap();
    return ZLJournalSplice { .first = qsizetype(map.value(u"First"_s).toLongLong()),
        .removedCount = qsizetype(map.value(u"Removed"_s).toLongLong()),
        .inserted = map.value(u"Inserted"_s).toList() };
}

}

QByteArray ZLJournalChange::encoded() const
{
    QVariantMap map { { u"Reading"_s, reading }, { u"Number"_s, qlonglong(number) } };
    if (chapters)
        map.insert(u"Chapters"_s, archivedSplice(*chapters));
    if (templates)
        map.insert(u"Templates"_s, archivedSplice(*templates));
    if (extras)
        map.insert(u"Extras"_s, archivedExtras(*extras));
    if (running) {
        map.insert(u"RunningFrom"_s, running->reading);
        map.insert(u"RunningAt"_s, running->lastSeen.toMSecsSinceEpoch());
    }
    return ZLKeyedArchiver::archivedData(map);
}

ZLResult<ZLJournalChange> ZLJournalChange::decoded(QByteArrayView bytes)
{
    const auto root = ZLKeyedUnarchiver::unarchivedRoot(bytes);
    if (!root)
        return root.error();
    const QVariantMap map = root.value().toMap();
    ZLJournalChange change { .chapters = unarchivedSplice(map.value(u"Chapters"_s)),
        .templates = unarchivedSplice(map.value(u"Templates"_s)),
        .extras = unarchivedExtras(map.value(u"Extras"_s)),
        .reading = map.value(u"Reading"_s).toDouble(),
        .number = map.value(u"Number"_s).toLongLong() };
    if (map.contains(u"RunningAt"_s))
        change.running = ZLInterruptedRecording { .reading = map.value(u"RunningFrom"_s).toDouble(),
            .lastSeen = ZLUtcTime::fromMilliseconds(map.value(u"RunningAt"_s).toLongLong()) };
    return change;
}
