#pragma once

#include "platform/ZLDiskWork.h"
#include "platform/ZLResult.h"
#include "platform/sound/ZLSound.h"

#include <functional>
#include <memory>

/// Plays a few seconds of a media file. The file is read beside the main thread.
class ZLSoundExcerpt final : public QObject {
    Q_OBJECT

public:
    static constexpr double Seconds = 4.0;
    /// Makes a sound of the bytes of a sound file.
    using SoundMaker = std::function<std::unique_ptr<ZLSound>(const QByteArray& file)>;

    explicit ZLSoundExcerpt(SoundMaker soundMaker, QObject* parent = nullptr);

    /// What still plays ends.
    void play(const QString& path, double start);
    void stop();

    /// The bytes of a sound file with what the file at `path` has from `start` on, in seconds.
    [[nodiscard]] static ZLResult<QByteArray> bytesOf(const QString& path, double start);

Q_SIGNALS:
    /// Nothing is to be heard; says why.
    void didFail(const QString& reason);

private:
    void playBytes(const QByteArray& bytes);

    const SoundMaker m_soundMaker;
    std::unique_ptr<ZLDiskWork> m_work;
    std::unique_ptr<ZLSound> m_sound;
};
