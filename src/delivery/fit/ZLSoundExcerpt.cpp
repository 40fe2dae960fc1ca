#include "delivery/fit/ZLSoundExcerpt.h"

#include "platform/media/decoding/ZLSoundDecoder.h"

#include <QtEndian>

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>
#include <vector>

namespace {

constexpr int samplesPerSecond = 44100;
constexpr auto mostSamples = size_t(ZLSoundExcerpt::Seconds * samplesPerSecond);
constexpr double loudest = 32767.0;

void append(QByteArray& bytes, quint32 value, int size)
{
    std::array<char, sizeof value> little {};
    qToLittleEndian(value, little.data());
    bytes.append(little.data(), size);
}

/// One channel of 16 bits.
QByteArray waveFile(const std::vector<float>& samples)
{
    constexpr quint32 bytesPerSample = 2;
    constexpr quint32 sizeOfFormat = 16;
    constexpr quint32 sizeOfHeader = 36;
    const auto size = quint32(samples.size()) * bytesPerSample;
    QByteArray bytes("RIFF");
    append(bytes, size + sizeOfHeader, 4);
    bytes.append("WAVEfmt ");
    append(bytes, sizeOfFormat, 4);
    append(bytes, 1, 2); // Plain samples.
    append(bytes, 1, 2); // One channel.
    append(bytes, samplesPerSecond, 4);
    append(bytes, samplesPerSecond * bytesPerSample, 4);
    append(bytes, bytesPerSample, 2);
    append(bytes, bytesPerSample * 8, 2);
    bytes.append("data");
    append(bytes, size, 4);
    for (const float sample : samples) {
        const double level = std::isfinite(sample) ? std::clamp(double(sample), -1.0, 1.0) : 0.0;
        append(bytes, quint32(qint32(std::lround(level * loudest))), bytesPerSample);
    }
    return bytes;
}

}

ZLSoundExcerpt::ZLSoundExcerpt(SoundMaker soundMaker, QObject* parent)
    : QObject(parent)
    , m_soundMaker(std::move(soundMaker))
{
}

void ZLSoundExcerpt::play(const QString& path, double start)
{
    stop();
    m_work = std::make_unique<ZLDiskWork>();
    m_work->start([this, path, start](const ZLDiskWork::Teller& tell) {
        const auto bytes = bytesOf(path, start);
        tell([this, bytes] {
            if (bytes)
                playBytes(bytes.value());
            else
                Q_EMIT didFail(bytes.error().message);
        });
    });
}

void ZLSoundExcerpt::stop()
{
    m_work.reset();
    m_sound.reset();
}

ZLResult<QByteArray> ZLSoundExcerpt::bytesOf(const QString& path, double start)
{
    std::vector<float> samples;
    const ZLStatus status = ZLSoundDecoder::decode(
        path, samplesPerSecond,
        [&samples](std::span<const float> part) {
            const size_t count = std::min(part.size(), mostSamples - samples.size());
            samples.insert(samples.end(), part.begin(), part.begin() + std::ptrdiff_t(count));
            return samples.size() < mostSamples;
        },
        std::max(start, 0.0));
    if (!status)
        return status.error();
    if (samples.empty())
        return ZLError { tr("%1: The file ends before that.").arg(path) };
    return waveFile(samples);
}

void ZLSoundExcerpt::playBytes(const QByteArray& bytes)
{
    m_sound = m_soundMaker ? m_soundMaker(bytes) : std::make_unique<ZLSilentSound>();
    // It may end before play() returns.
    connect(m_sound.get(), &ZLSound::didFinishPlaying, this, [this](bool isFinished) {
        if (!isFinished)
            Q_EMIT didFail(tr("There is no sound output to play it on."));
    });
    m_sound->play();
}
