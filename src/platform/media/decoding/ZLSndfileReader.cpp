#include "platform/media/decoding/ZLSndfileReader.h"

#include "platform/media/decoding/ZLResampler.h"

#include <QCoreApplication>

#include <sndfile.h>
#include <unistd.h>

#include <algorithm>
#include <memory>
#include <utility>
#include <vector>

namespace {

struct SndfileTexts {
    Q_DECLARE_TR_FUNCTIONS(ZLSndfileReader)
};

constexpr int mostChannels = 64;
constexpr int leastRate = 1000;
constexpr int mostRate = 768000;
constexpr size_t framesAtOnce = 16384;

struct CloseSound {
    void operator()(SNDFILE* file) const { sf_close(file); }
};

using OpenSound = std::unique_ptr<SNDFILE, CloseSound>;

/// Null when the library does not know the file's form.
OpenSound open(const ZLMediaSource& source, SF_INFO& info)
{
    if (lseek(source.descriptor(), 0, SEEK_SET) != 0)
        return nullptr;
    return OpenSound(sf_open_fd(source.descriptor(), SFM_READ, &info, SF_FALSE));
}

/// A sound that claims anything else is a trap: at one sample a second, a minute of it fills a day.
bool makesSense(const SF_INFO& info)
{
    return info.channels >= 1 && info.channels <= mostChannels && info.samplerate >= leastRate
        && info.samplerate <= mostRate;
}

/// The mean of the channels of each frame.
void mix(const std::vector<float>& frames, size_t channels, std::vector<float>& mixed)
{
    for (size_t frame = 0; frame < mixed.size(); ++frame) {
        float sum = 0.0F;
        for (size_t channel = 0; channel < channels; ++channel)
            sum += frames[frame * channels + channel];
        mixed[frame] = sum / float(channels);
    }
}

}

std::optional<ZLStatus> ZLSndfileReader::decode(
    const ZLMediaSource& source, int samplesPerSecond, const ZLSoundDecoder::Sink& sink, double start)
{
    SF_INFO info {};
    const OpenSound file = open(source, info);
    if (!file)
        return std::nullopt;
    if (!makesSense(info))
        return ZLStatus(
            ZLError { SndfileTexts::tr("It claims to have %1 samples a second and %2 channels, which no sound has.")
                    .arg(info.samplerate)
                    .arg(info.channels) });
    if (start > 0.0 && sf_seek(file.get(), sf_count_t(start * info.samplerate), SEEK_SET) < 0)
        return ZLStatus(ZLError { SndfileTexts::tr("The file ends before that.") });
    ZLResampler resampler(info.samplerate, samplesPerSecond);
    if (!resampler.isValid())
        return ZLStatus(ZLError { SndfileTexts::tr("The sound cannot be brought to another sample rate.") });
    const auto channels = size_t(info.channels);
    std::vector<float> frames(framesAtOnce * channels);
    std::vector<float> mixed;
    double secondsLeft = ZLSoundDecoder::MostSeconds;
    while (secondsLeft > 0.0) {
        const sf_count_t count = sf_readf_float(file.get(), frames.data(), sf_count_t(framesAtOnce));
        if (count <= 0)
            break;
        mixed.resize(size_t(count));
        mix(frames, channels, mixed);
        if (!sink(resampler.resampled(mixed)))
            return ZLDone {};
        secondsLeft -= double(count) / info.samplerate;
    }
    sink(resampler.rest());
    return ZLDone {};
}

std::optional<double> ZLSndfileReader::claimedSeconds(const ZLMediaSource& source)
{
    SF_INFO info {};
    const OpenSound file = open(source, info);
    if (!file || !makesSense(info) || info.frames <= 0)
        return std::nullopt;
    return double(info.frames) / info.samplerate;
}
