#include "delivery/fit/ZLClockStart.h"

#include "alignment/ZLSoundSearch.h"
#include "delivery/fit/ZLHeardSound.h"
#include "platform/media/decoding/ZLResampler.h"
#include "platform/media/decoding/ZLSoundDecoder.h"
#include "platform/sound/ZLSoundSamples.h"

#include <QCoreApplication>

#include <algorithm>

namespace {

struct ClockStartTexts {
    Q_DECLARE_TR_FUNCTIONS(ZLClockStart)
};

constexpr int samplesPerSecond = ZLSoundFingerprint::SamplesPerSecond;

/// One channel at the rate at which recordings are searched; empty for what is no sound.
std::vector<float> samplesOf(const QByteArray& file)
{
    const auto sound = ZLSoundSamples::decode(file);
    if (!sound || sound.value().channelCount < 1)
        return {};
    std::vector<float> mono;
    const std::vector<float>& samples = sound.value().samples;
    for (size_t at = 0; at < samples.size(); at += size_t(sound.value().channelCount))
        mono.push_back(samples[at]);
    ZLResampler resampler(sound.value().frameRate, samplesPerSecond);
    if (!resampler.isValid())
        return {};
    const auto first = resampler.resampled(mono);
    std::vector<float> resampled(first.begin(), first.end());
    const auto rest = resampler.rest();
    resampled.insert(resampled.end(), rest.begin(), rest.end());
    return resampled;
}

}

ZLResult<double> ZLClockStart::byBeep(const QString& recordingPath, const QByteArray& beep, ZLWorkProgress& progress)
{
    const std::vector<float> wanted = samplesOf(beep);
    ZLSoundSearch search(wanted);
    progress.begin(qint64(ZLSoundDecoder::expectedSeconds(recordingPath).value_or(0.0) * samplesPerSecond));
    const ZLStatus status =
        ZLSoundDecoder::decode(recordingPath, samplesPerSecond, [&](std::span<const float> samples) {
            search.hear(samples);
            progress.advance(qint64(samples.size()));
            return !progress.isCancelled();
        });
    if (!status)
        return status.error();
    const auto found = search.firstPlace();
    if (!found)
        return ZLError { ClockStartTexts::tr("%1: The start beep is not to be heard in it.").arg(recordingPath) };
    return (found->place + double(wanted.size())) / samplesPerSecond;
}

ZLResult<double> ZLClockStart::byHeard(const QString& recordingPath, const ZLHeardShow& heard, ZLWorkProgress& progress)
{
    const auto recording = ZLHeardSound::fingerprintOf(recordingPath, progress);
    if (!recording)
        return recording.error();
    const ZLSoundAlignment alignment = ZLSoundAlignment::of(heard.fingerprint, recording.value(), progress);
    if (!alignment.isTheShow())
        return ZLError { ClockStartTexts::tr(
            "%1 is not the recording of this show: too little of what was heard along is in it.")
                .arg(recordingPath) };
    const auto longest = std::ranges::max_element(alignment.pieces, {}, &ZLSoundPiece::length);
    return longest->fileTimeOf(heard.zero);
}
