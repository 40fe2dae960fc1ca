#pragma once

#include "platform/sound/ZLSoundInput.h"
#include "platform/sound/ZLSoundServer.h"

#include <QDeadlineTimer>
#include <QObject>

#include <condition_variable>
#include <mutex>

struct pa_context;
struct pa_sink_info;
struct pa_source_info;
struct pa_threaded_mainloop;

/// The sources as the sound system reported them.
struct ZLInputReading {
    QList<ZLInputDevice> devices {};
    /// The identifier of the source that the system takes where none is chosen.
    QString defaultId {};
};

/// The line to the sound server. It is read on a thread of its own, so nothing else waits for a server that answers
/// late or never, and a busy window tears no hole into what is playing. It keeps the list of outputs, or that of
/// sources, up to date by the server's own announcements; a question is then answered from memory, and is as fresh as
/// one sent to the server.
class ZLPulseConnection : public QObject {
    Q_OBJECT

public:
    enum class State { Idle, Connecting, Ready, Failed };
    /// Which list is kept.
    enum class Interest { Outputs, Inputs };

    struct Snapshot {
        State state = State::Idle;
        /// Whether the list is the server's answer.
        bool isListed = false;
        ZLOutputReading reading {};
        ZLInputReading inputs {};
    };

    explicit ZLPulseConnection(Interest interest = Interest::Outputs);
    ~ZLPulseConnection() override;

    /// Begins to connect unless there is a connection or one on its way. Never waits.
    void connectToServer();
    /// What is known now.
    [[nodiscard]] Snapshot snapshot() const;
    /// What is known when the server has answered, or else after a short wait.
    [[nodiscard]] Snapshot answeredSnapshot();
    /// Milliseconds that a sound may wait for the server; 0 when it has had its time.
    [[nodiscard]] int remainingPatience() const;

    [[nodiscard]] pa_threaded_mainloop* mainloop() const { return m_mainloop; }
    /// Only to be used with the main loop's lock held; null before the first attempt.
    [[nodiscard]] pa_context* context() const { return m_context; }

Q_SIGNALS:
    /// The snapshot changed. Sent from the connection's own thread.
    void didChange();

private:
    void openContext();
    void dropContext();
    void contextStateDidChange();
    void contextIsReady();
    void askForList();
    void askForOutputs();
    void askForInputs();
    void outputWasListed(const pa_sink_info* output, int end);
    void inputWasListed(const pa_source_info* input, int end);
    void publish(const Snapshot& snapshot);

    const Interest m_interest;
    pa_threaded_mainloop* m_mainloop;
    pa_context* m_context = nullptr;
    /// These two belong to the connection's thread.
    QList<ZLOutputDevice> m_outputsBeingListed;
    ZLInputReading m_inputsBeingListed;

    mutable std::mutex m_mutex;
    std::condition_variable m_answered;
    Snapshot m_snapshot;
    QDeadlineTimer m_answerDeadline;
    QDeadlineTimer m_soundDeadline;
    /// The latest attempt was still unanswered when its time was over.
    bool m_isSilent = false;
};
