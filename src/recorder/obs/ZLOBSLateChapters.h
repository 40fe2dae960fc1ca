#pragma once

#include "platform/ZLHostClock.h"
#include "platform/ZLOneShotTimer.h"

#include <QList>
#include <QObject>
#include <QString>

#include <memory>

/// Chapters for the file of OBS Studio, which wait until the pictures of their moments leave the encoder: OBS puts a
/// chapter where what leaves the encoder just then is. They come out in the order in which they went in.
class ZLOBSLateChapters : public QObject {
    Q_OBJECT

public:
    ZLOBSLateChapters(const ZLHostClock& clock, ZLOneShotTimerStarter startTimer, QObject* parent = nullptr);

    /// To come out after `delay` seconds of recording.
    void add(const QString& title, double delay);
    /// Whether the recording goes on. In a pause nothing leaves the encoder, so that they all wait as much longer.
    void setRecording(bool isRecording);
    /// Whether OBS can be reached. What is due meanwhile comes out as soon as it can.
    void setReachable(bool isReachable);
    /// The recording ends, so that they all come out at once, as far as OBS can be reached.
    void finish();

Q_SIGNALS:
    /// It is time for this one.
    void isDue(const QString& title);

private:
    struct Waiting {
        QString title;
        /// By recordedTime().
        double due = 0.0;
    };

    [[nodiscard]] double recordedTime() const;
    void takeDue();
    void releaseFirst();

    const ZLHostClock& m_clock;
    const ZLOneShotTimerStarter m_startTimer;
    std::unique_ptr<ZLOneShotTimer> m_timer;
    QList<Waiting> m_waiting;
    bool m_isRecording = true;
    bool m_isReachable = true;
    /// What the pauses lasted, and since when there is one.
    double m_paused = 0.0;
    double m_pausedSince = 0.0;
};
