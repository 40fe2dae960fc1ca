#pragma once

#include <QObject>
#include <QString>

/// A short sound that is played once on a chosen output and reports its end, whatever happens. ZLSoundServer makes it.
class ZLSound : public QObject {
    Q_OBJECT

public:
    /// Identifier of the output to play on; an empty one means the system's default output.
    void setPlaybackDeviceIdentifier(const QString& identifier) { m_deviceIdentifier = identifier; }
    [[nodiscard]] QString playbackDeviceIdentifier() const { return m_deviceIdentifier; }

    /// Starts playing; didFinishPlaying follows exactly once, possibly before this call returns. Does nothing while the
    /// sound already plays.
    virtual void play() = 0;

Q_SIGNALS:
    /// `finished` is false when the sound could not be played to its end.
    void didFinishPlaying(bool finished);

private:
    QString m_deviceIdentifier;
};

/// The sound for a system without sound: there is nothing to wait for, so it ends at once.
class ZLSilentSound final : public ZLSound {
    Q_OBJECT

public:
    void play() override { Q_EMIT didFinishPlaying(false); }
};
