#include "following/ZLFollowedRecording.h"

#include "document/shared/ZLDocumentExtras.h"

#include <cmath>

using namespace Qt::StringLiterals;

namespace {

/// The wall clock may be set in between, and another recording does not begin within that time.
constexpr double sameBeginSeconds = 5.0;

}

bool ZLFollowedRecording::isSameAs(const QString& otherRecorder, double otherBegan) const
{
    return recorder == otherRecorder && std::abs(otherBegan - began) <= sameBeginSeconds;
}

std::optional<ZLFollowedRecording> ZLFollowedRecording::keptIn(const ZLDocumentExtras& extras)
{
    const QVariantMap kept = extras.value(ZLFollowingKey::Recording).toMap();
    ZLFollowedRecording recording { .recorder = kept.value(u"Recorder"_s).toString(),
        .base = kept.value(u"Base"_s).toDouble(),
        .began = kept.value(u"Began"_s).toDouble() };
    if (recording.recorder.isEmpty() || !std::isfinite(recording.base) || !std::isfinite(recording.began))
        return std::nullopt;
    return recording;
}

void ZLFollowedRecording::keepIn(ZLDocumentExtras& extras) const
{
    extras.keep(ZLFollowingKey::Recording,
        QVariantMap { { u"Recorder"_s, recorder }, { u"Base"_s, base }, { u"Began"_s, began } });
}

void ZLFollowedRecording::keepFile(ZLDocumentExtras& extras, const QString& path, double base, double reading)
{
    QVariantList files = extras.value(ZLFollowingKey::Files).toList();
    bool isFirst = true;
    for (const QVariant& file : std::as_const(files)) {
        const QVariantMap kept = file.toMap();
        if (kept.value(u"Path"_s).toString() == path)
            return;
        isFirst = isFirst && kept.value(u"Reading"_s).toDouble() < base;
    }
    files.append(QVariantMap { { u"Path"_s, path }, { u"Reading"_s, isFirst ? base : reading } });
    extras.keep(ZLFollowingKey::Files, files);
}
