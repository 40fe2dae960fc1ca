#include "delivery/fit/ZLHeardSound.h"

#include "alignment/ZLFingerprinter.h"
#include "platform/media/decoding/ZLSoundDecoder.h"

#include <QCoreApplication>

#include <algorithm>
#include <cmath>

namespace {

struct HeardSoundTexts {
    Q_DECLARE_TR_FUNCTIONS(ZLHeardSound)
};

bool saysNothing(const ZLSoundFingerprint& fingerprint)
{
    return std::ranges::all_of(fingerprint.frames, [](auto frame) { return frame == ZLSoundFingerprint::Nothing; });
}

/// The sound of a file that begins at `reading` of the recording clock, from the clock's zero on.
ZLListeningSpan spanFrom(double reading, ZLSoundFingerprint fingerprint)
{
    ZLListeningSpan span { .start = reading, .frames = std::move(fingerprint.frames) };
    if (reading < 0.0) {
        const auto early = std::min(std::ceil(-reading / span.interval), double(span.frames.size()));
        span.frames.erase(span.frames.begin(), span.frames.begin() + std::ptrdiff_t(early));
        span.start = std::max(0.0, reading + early * span.interval);
    }
    return span;
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

ZLResult<ZLHeardShow> ZLHeardSound::recorded(const QList<ZLRecorderFile>& files, ZLWorkProgress& progress)
{
    ZLListeningData data;
    for (const ZLRecorderFile& file : files) {
        auto fingerprint = fingerprintOf(file.path, progress);
        if (!fingerprint)
            return fingerprint.error();
        data.add(spanFrom(file.reading, std::move(fingerprint).value()));
    }
    return data.heardShow();
}

ZLResult<ZLHeardShow> ZLHeardSound::heardAlong(const QVariant& stored)
{
    ZLHeardShow show = ZLListeningData::fromStored(stored).heardShow();
    if (saysNothing(show.fingerprint))
        return ZLError { HeardSoundTexts::tr("The document has nothing of listening along.") };
    return show;
}
