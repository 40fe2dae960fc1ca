#include "delivery/fit/ZLHeardSound.h"

#include "alignment/ZLFingerprinter.h"
#include "platform/media/decoding/ZLSoundDecoder.h"

#include <QCoreApplication>

#include <algorithm>

namespace {

struct HeardSoundTexts {
    Q_DECLARE_TR_FUNCTIONS(ZLHeardSound)
};

bool saysNothing(const ZLSoundFingerprint& fingerprint)
{
    return std::ranges::all_of(fingerprint.frames, [](auto frame) { return frame == ZLSoundFingerprint::Nothing; });
}

}

ZLResult<ZLSoundFingerprint> ZLHeardSound::fingerprintOf(const QString& path, ZLWorkProgress& progress)
{
    progress.begin(qint64(ZLSoundDecoder::expectedSeconds(path).value_or(0.0) * ZLSoundFingerprint::SamplesPerSecond));
    ZLFingerprinter fingerprinter;
    ZLSoundFingerprint fingerprint;
    const auto takeFrames = [&] {
        const auto frames = fingerprinter.takeFrames();
        fingerprint.frames.insert(fingerprint.frames.end(), frames.begin(), frames.end());
    };
    const ZLStatus status =
        ZLSoundDecoder::decode(path, ZLSoundFingerprint::SamplesPerSecond, [&](std::span<const float> samples) {
            fingerprinter.hear(samples);
            takeFrames();
            progress.advance(qint64(samples.size()));
            return !progress.isCancelled();
        });
    if (!status)
        return status.error();
    fingerprinter.finish();
    takeFrames();
    if (saysNothing(fingerprint))
        return ZLError { HeardSoundTexts::tr("%1: There is nothing to be heard in it.").arg(path) };
    return fingerprint;
}

ZLResult<ZLHeardShow> ZLHeardSound::heardAlong(const QVariant& stored)
{
    ZLHeardShow show = ZLListeningData::fromStored(stored).heardShow();
    if (saysNothing(show.fingerprint))
        return ZLError { HeardSoundTexts::tr("The document has nothing of listening along.") };
    return show;
}
