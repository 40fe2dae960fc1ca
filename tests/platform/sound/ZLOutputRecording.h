#pragma once

#include <QByteArray>
#include <QList>
#include <QProcess>
#include <QString>

/// Records what an output of the private sound server plays.
class ZLOutputRecording {
public:
    /// Samples a second, of one channel.
    static constexpr int Rate = 48000;

    /// A stretch of sound between silences, in samples from the beginning of the recording.
    struct Stretch {
        int start = 0;
        int length = 0;
        [[nodiscard]] int end() const { return start + length; }
    };

    explicit ZLOutputRecording(const QString& outputIdentifier);
    ~ZLOutputRecording();

    /// Waits until the recording runs.
    [[nodiscard]] bool isRunning();
    /// Waits until something is heard.
    [[nodiscard]] bool hearsSomething();
    /// Waits until `seconds` more have been recorded than now.
    [[nodiscard]] bool goesOnFor(double seconds);

    /// What was heard so far.
    [[nodiscard]] QList<Stretch> stretches();

private:
    [[nodiscard]] int sampleCount();

    QProcess m_recorder;
    QByteArray m_bytes;
};
