#pragma once

#include <QList>
#include <QObject>
#include <QString>

#include <memory>
#include <vector>

/// A source of sound that can be listened to: a microphone, a line, or the monitor of an output.
struct ZLInputDevice {
    /// Stays the same over restarts; this is what is stored and handed to ZLSoundInput.
    QString id;
    /// What people know the device by; only to be shown.
    QString name;
    /// Whether it hears what an output plays.
    bool isMonitor = false;

    bool operator==(const ZLInputDevice&) const = default;
};

/// A stretch of sound as one source heard it.
struct ZLHeardBlock {
    /// Seconds of ZLSteadyHostClock at which the first sample sounded: the delay of the source is taken out. Of a
    /// monitor, when the output plays it.
    double hostTime = 0.0;
    /// Of one channel, ZLSoundInput::SamplesPerSecond a second, from -1 to 1.
    std::vector<float> samples {};
};

/// Hears one source of the system. No call waits: what becomes of the source is told by signal, and a server or a
/// source that is missing is taken as soon as it is there.
class ZLSoundInput : public QObject {
    Q_OBJECT

public:
    enum class State {
        Off,
        NoServer, ///< No sound server answers.
        Missing, ///< The server knows no such source, or refuses it.
        Opening,
        Hearing, ///< Sound arrives, be it silence.
    };

    static constexpr int SamplesPerSecond = 8000;

    /// That of this system. Nothing is connected before something is asked of it.
    [[nodiscard]] static std::unique_ptr<ZLSoundInput> create();

    /// Asks for the list of sources, without hearing one.
    virtual void prepare() = 0;
    /// Hears the source with this identifier from now on; an empty one stands for the default source, whichever that
    /// is.
    virtual void listenTo(const QString& id) = 0;
    virtual void stop() = 0;

    [[nodiscard]] virtual State state() const = 0;
    /// All sources, in the order of the sound system; empty as long as no server has told them.
    [[nodiscard]] virtual QList<ZLInputDevice> devices() const = 0;
    /// What was heard since the last call, in order. When it is not taken for a minute, the oldest goes.
    [[nodiscard]] virtual std::vector<ZLHeardBlock> takeBlocks() = 0;

Q_SIGNALS:
    void stateDidChange();
    void devicesDidChange();
    /// takeBlocks() has something.
    void didHear();
};
