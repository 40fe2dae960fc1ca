#include "platform/sound/ZLSoundSamples.h"

#include <QBuffer>
#include <QObject>

#include <sndfile.h>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

constexpr int maximumChannelCount = 8;
constexpr int maximumFrameRate = 192000;

QBuffer& soundBuffer(void* data)
{
    return *static_cast<QBuffer*>(data);
}

sf_count_t soundBufferLength(void* data)
{
    return soundBuffer(data).size();
}

sf_count_t seekSoundBuffer(sf_count_t offset, int whence, void* data)
{
    QBuffer& buffer = soundBuffer(data);
    const qint64 origin = whence == SEEK_CUR ? buffer.pos() : whence == SEEK_END ? buffer.size() : 0;
    const qint64 position = origin + offset;
    return position >= 0 && buffer.seek(position) ? position : -1;
}

sf_count_t readSoundBuffer(void* target, sf_count_t count, void* data)
{
    return std::max<qint64>(0, soundBuffer(data).read(static_cast<char*>(target), count));
}

sf_count_t refuseToWriteSoundBuffer(const void*, sf_count_t, void*)
{
    return 0;
}

sf_count_t soundBufferPosition(void* data)
{
    return soundBuffer(data).pos();
}

SF_VIRTUAL_IO soundBufferAccess {
    soundBufferLength,
    seekSoundBuffer,
    readSoundBuffer,
    refuseToWriteSoundBuffer,
    soundBufferPosition,
};

/// A header may claim anything, and what it claims is allocated.
bool isCue(const SF_INFO& info)
{
    constexpr auto maximumSampleCount = sf_count_t(ZLSoundSamples::MaximumByteCount / sizeof(float));
    return info.channels > 0 && info.channels <= maximumChannelCount && info.samplerate > 0
        && info.samplerate <= maximumFrameRate && info.frames > 0 && info.frames <= maximumSampleCount / info.channels;
}

}

int ZLSoundSamples::milliseconds() const
{
    return int(1000 * (samples.size() / std::size_t(channelCount)) / std::size_t(frameRate));
}

ZLResult<ZLSoundSamples> ZLSoundSamples::decode(const QByteArray& file)
{
    QBuffer buffer;
    buffer.setData(file);
    buffer.open(QIODevice::ReadOnly);
    SF_INFO info {};
    const std::unique_ptr<SNDFILE, decltype(&sf_close)> sound(
        sf_open_virtual(&soundBufferAccess, SFM_READ, &info, &buffer), sf_close);
    if (!sound)
        return ZLError { QObject::tr("The sound cannot be read: %1").arg(QString::fromUtf8(sf_strerror(nullptr))) };
    if (!isCue(info))
        return ZLError { QObject::tr("The sound is empty, too long or of an unusual kind.") };
    ZLSoundSamples decoded { .channelCount = info.channels, .frameRate = info.samplerate };
    decoded.samples.resize(std::size_t(info.frames * info.channels));
    const sf_count_t frameCount = sf_readf_float(sound.get(), decoded.samples.data(), info.frames);
    if (frameCount <= 0)
        return ZLError { QObject::tr("The sound holds nothing that can be played.") };
    decoded.samples.resize(std::size_t(frameCount * info.channels));
    return decoded;
}
