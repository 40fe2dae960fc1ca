#include "recorder/obs/ZLOBSDelayNote.h"

#include <QJsonObject>

#include <cmath>

using namespace Qt::StringLiterals;

namespace {

constexpr double longestEncoderDelay = 30.0;
/// The clock of the day may be set a little between two looks.
constexpr double sameRecordingSeconds = 2.0;

const QString encoderDelayKey = u"encoderDelay"_s;
const QString zeroOfFramesKey = u"zeroOfFrames"_s;

}

std::optional<ZLOBSDelayNote> ZLOBSDelayNote::read(const QJsonValue& value)
{
    const QJsonValue delay = value.toObject().value(encoderDelayKey);
    const QJsonValue zero = value.toObject().value(zeroOfFramesKey);
    const bool makesSense = delay.isDouble() && zero.isDouble() && delay.toDouble() >= 0.0;
    if (!makesSense || delay.toDouble() > longestEncoderDelay)
        return std::nullopt;
    return ZLOBSDelayNote { delay.toDouble(), zero.toDouble() };
}

QJsonValue ZLOBSDelayNote::value() const
{
    return QJsonObject { { encoderDelayKey, encoderDelay }, { zeroOfFramesKey, zeroOfFrames } };
}

bool ZLOBSDelayNote::isOfRecording(double itsZeroOfFrames) const
{
    return std::abs(itsZeroOfFrames - zeroOfFrames) < sameRecordingSeconds;
}
