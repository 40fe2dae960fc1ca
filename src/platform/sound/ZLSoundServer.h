#pragma once

#include "platform/sound/ZLOutputDevice.h"
#include "platform/sound/ZLSound.h"

#include <QList>
#include <QObject>

#include <memory>
#include <optional>

/// The outputs as the sound system reported them, before any is left out.
struct ZLOutputReading {
    /// The sound system's own code; 0 when the list could be read.
    int error = 0;
    /// In the order of the sound system. An entry without an identifier or a name could not be read.
    QList<ZLOutputDevice> outputs {};
};

/// The system's sound: which outputs there are, and sounds that play on them. No call waits for a server that does not
/// answer for longer than FirstAnswerMilliseconds, and none at all once it is known not to answer.
class ZLSoundServer : public QObject {
    Q_OBJECT

public:
    /// The one of this system. Nothing is connected before something is asked of it.
    [[nodiscard]] static std::unique_ptr<ZLSoundServer> create();

    /// How long a call waits for the very first list, in milliseconds.
    static constexpr int FirstAnswerMilliseconds = 250;

    /// Every output-capable device as it is now, in the order of the sound system; nothing when the list cannot be
    /// read, which differs from an empty list. Each failure is said in one line on the standard error.
    [[nodiscard]] std::optional<QList<ZLOutputDevice>> outputDevices();

    /// Whether the sound server answers. Asks for a new connection where there is none, as outputDevices() does.
    [[nodiscard]] virtual bool isReachable() = 0;

    /// Starts connecting, so that the first sound needs not wait for it.
    virtual void prepare() { }

    /// The sound in the bytes of a sound file, for example an AIFF; one that is missing or cannot be read
    /// ends at once when played.
    [[nodiscard]] virtual std::unique_ptr<ZLSound> sound(const QByteArray& file) = 0;

Q_SIGNALS:
    /// A device came, went or was renamed, or the server came or went: ask again.
    void outputDevicesDidChange();

protected:
    [[nodiscard]] virtual ZLOutputReading readOutputs() = 0;
};
