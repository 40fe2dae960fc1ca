#pragma once

#include <QObject>
#include <QString>

#include <memory>

/// A short sound that is played once on a chosen output and reports its end, whatever happens.
class ZLSound : public QObject {
    Q_OBJECT

public:
    /// Identifier of the output to play on; an empty one means the system's default output.
    void setPlaybackDeviceIdentifier(const QString& identifier) { m_deviceIdentifier = identifier; }
    [[nodiscard]] QString playbackDeviceIdentifier() const { return m_deviceIdentifier; }

    /// Starts playing; didFinishPlaying follows exactly once, possibly before this call returns.
    virtual void play() = 0;

    /// The sound of the application with this resource name, for example "beep.aiff".
    [[nodiscard]] static std::unique_ptr<ZLSound> soundNamed(const QString& name);

Q_SIGNALS:
    /// `finished` is false when the sound could not be played to its end.
    void didFinishPlaying(bool finished);

private:
    QString m_deviceIdentifier;
};

/// The back end for a system without sound: there is nothing to wait for, so it ends at once.
class ZLSilentSound final : public ZLSound {
    Q_OBJECT

public:
    void play() override;
};
