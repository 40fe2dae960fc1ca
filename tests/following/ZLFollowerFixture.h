#pragma once

#include "following/ZLRecorderFollower.h"

#include "ZLFakeRecorder.h"
#include "recorder/ZLSimulatedRecorder.h"
#include "support/ZLDocumentFixture.h"

#include <QSignalSpy>

#include <cmath>

/// A document that follows a simulated recorder. Time goes on by the host clock of the test alone.
class ZLFollowerFixture : public ZLDocumentFixture {
protected:
    ZLFollowerFixture() { follow({}); }

    /// Follows from the beginning, with what `setup` says beside the recorder.
    void follow(ZLFollowerSetup setup)
    {
        m_follower.reset();
        auto recorder = std::make_unique<ZLFakeRecorder>();
        m_fake = recorder.get();
        setup.recorder = std::move(recorder);
        setup.recorderName = QStringLiteral("Fake");
        setup.hostClock = m_hostClock;
        m_follower = std::make_unique<ZLRecorderFollower>(m_document, std::move(setup));
        QObject::connect(m_follower.get(), &ZLRecorderFollower::didHappen, m_follower.get(),
            [this](const QString& sentence) { m_events.append(sentence); });
        m_follower->open();
    }

    [[nodiscard]] double now() const { return m_hostClock->now(); }
    void report(const ZLRecorderReport& report) { Q_EMIT m_fake->didReport(report); }
    void report() { report(m_recorder.reportAt(now())); }
    void reportStanding() { report({ .state = ZLRecorderState::Standing, .hostTime = now() }); }

    void startRecorder()
    {
        m_recorder.startAt(now());
        report();
    }

    void pauseRecorder()
    {
        m_recorder.pauseAt(now());
        report();
    }

    /// Lets time go on while the recorder reports; gives by how much the clock was off at most and sees to it that it
    /// never goes back.
    double run(double seconds, double base = 0.0)
    {
        double worst = 0.0;
        double last = m_document.currentDuration();
        const auto lookAtClock = [&] {
            const double reading = m_document.currentDuration();
            EXPECT_GE(reading, last - 1e-9) << "beside the rounding of sums";
            EXPECT_LE(reading - last, 0.111) << "a jump";
            last = reading;
            worst = std::max(worst, std::abs(reading - base - m_recorder.positionAt(now())));
        };
        const int ticks = int(std::lround(seconds * 10.0));
        const double begin = now();
        for (int tick = 1; tick <= ticks; ++tick) {
            const double end = begin + tick * 0.1;
            for (m_nextReport = std::max(m_nextReport, now()); m_nextReport < end; m_nextReport += m_recorder.pause()) {
                advance(m_nextReport - now());
                lookAtClock();
                report();
            }
            advance(end - now());
            lookAtClock();
            m_follower->update();
            lookAtClock();
        }
        return worst;
    }

    /// Lets time go on without a word of the recorder.
    void runInSilence(double seconds)
    {
        const double begin = now();
        for (int tick = 1; tick <= int(std::lround(seconds * 10.0)); ++tick) {
            advance(begin + tick * 0.1 - now());
            m_follower->update();
        }
    }

    ZLSimulatedRecorder m_recorder;
    double m_nextReport = 0.0;
    ZLFakeRecorder* m_fake = nullptr;
    QStringList m_events;
    /// Goes before the document.
    std::unique_ptr<ZLRecorderFollower> m_follower;
};
