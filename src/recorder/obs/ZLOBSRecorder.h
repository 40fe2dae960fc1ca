#pragma once

#include "platform/ZLHostClock.h"
#include "platform/ZLOneShotTimer.h"
#include "recorder/ZLRecorder.h"
#include "recorder/obs/ZLOBSConnection.h"
#include "recorder/obs/ZLOBSDelayNote.h"
#include "recorder/obs/ZLOBSLateChapters.h"
#include "recorder/obs/ZLOBSPosition.h"

#include <QJsonArray>
#include <QJsonObject>

#include <memory>
#include <optional>

/// OBS Studio, by the websocket protocol 5 that it brings along since version 28. It is asked several times a second
/// for its recording, with questions at uneven intervals, so that the moments at which its counters step are found
/// soon.
class ZLOBSRecorder final : public ZLRecorder {
    Q_OBJECT

public:
    ZLOBSRecorder(const ZLOBSAddress& address, const ZLHostClock& clock,
        ZLOneShotTimerStarter startTimer = ZLStartSystemTimer, QObject* parent = nullptr);

    void open() override;
    void close() override;

    [[nodiscard]] bool canBeStarted() const override { return m_connection.isIdentified(); }
    void startRecording() override;
    void stopRecording() override;
    /// Since protocol 5.5, for files in Hybrid MP4.
    [[nodiscard]] bool canMarkChapters() const override { return m_canMarkChapters; }
    void markChapter(const QString& title) override;

private:
    void connectionStateDidChange(ZLRecorderConnection state, const QString& reason);
    void messageDidArrive(const ZLOBSMessage& message);
    void look();
    void lookSoon();
    void lookDidArrive(const QJsonArray& answers);
    void answerDidArrive(const QString& identifier, const QJsonObject& answer);
    void recordStateDidChange(const QString& state, const QString& path);
    void useDelayNote();
    void keepDelayNote();
    void sendChapter(const QString& title);
    void updateLateChapters();
    void askForFile();
    void report();
    void setFile(const QString& path, double begin);
    void request(const QString& type, const QString& identifier, const QJsonObject& data = {});
    [[nodiscard]] std::optional<double> zeroOfFramesSince1970() const;

    const ZLHostClock& m_clock;
    const ZLOneShotTimerStarter m_startTimer;
    ZLOBSConnection m_connection;
    ZLOBSPosition m_position;
    ZLOBSLateChapters m_lateChapters;
    std::unique_ptr<ZLOneShotTimer> m_lookTimer;
    /// The number of the look that is under way, and when it was asked.
    int m_look = 0;
    double m_asked = 0.0;
    double m_starting = 0.0;
    bool m_canMarkChapters = false;
    std::optional<ZLOBSDelayNote> m_delayNote;
    QString m_file;
};
