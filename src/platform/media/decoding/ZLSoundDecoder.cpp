#include "platform/media/decoding/ZLSoundDecoder.h"

#include "platform/ZLFileError.h"
#include "platform/media/ZLMediaSource.h"
#include "platform/media/decoding/ZLFfmpegReader.h"
#include "platform/media/decoding/ZLSndfileReader.h"

using namespace Qt::StringLiterals;

ZLStatus ZLSoundDecoder::decode(const QString& path, int samplesPerSecond, const Sink& sink, double start)
{
    const auto source = ZLMediaSource::open(path);
    if (!source)
        return source.error();
    const auto known = ZLSndfileReader::decode(*source.value(), samplesPerSecond, sink, start);
    const ZLStatus status = known ? *known : ZLFfmpegReader::decode(path, samplesPerSecond, sink, start);
    return status ? status : ZLStatus(ZLFileError::because(path, status.error().message));
}

std::optional<double> ZLSoundDecoder::claimedSeconds(const QString& path)
{
    const auto source = ZLMediaSource::open(path);
    return source ? ZLSndfileReader::claimedSeconds(*source.value()) : std::nullopt;
}

std::optional<double> ZLSoundDecoder::expectedSeconds(const QString& path)
{
    const auto source = ZLMediaSource::open(path);
    if (!source)
        return std::nullopt;
    const auto claimed = ZLSndfileReader::claimedSeconds(*source.value());
    return claimed ? claimed : ZLFfmpegReader::claimedSeconds(path);
}
