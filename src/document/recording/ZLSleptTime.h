#pragma once

#include "document/recording/ZLSleepWhileRecording.h"
#include "document/shared/ZLDocumentBasis.h"

#include <QList>

#include <utility>

class ZLRecordingClock;
class ZLSleepWatcher;

/// What happens when the computer sleeps during a recording. The clock stands meanwhile. The time can be added until
/// one of the two commands decides it.
class ZLSleptTime {
public:
    /// All three have to outlive it.
    ZLSleptTime(ZLDocumentBasis& basis, ZLRecordingClock& clock, ZLSleepWatcher& sleepWatcher);

    /// Looks whether the computer has slept. A running clock does so ten times a second, and before every mark.
    void noticeSleep();
    /// Host time at which the last sleep was noticed: what is carried out later was given after it. 0 for none.
    [[nodiscard]] double lastNoticedAt() const { return m_lastNoticedAt; }
    /// In order. Those that lie beyond the clock, because its start was undone, are left out.
    [[nodiscard]] QList<ZLSleepWhileRecording> undecided() const;
    /// Adds the time of all of them to the clock, and to each chapter the time of those that lie before it: that is to
    /// all that was marked after waking up.
    void add();
    void leave();
    /// There is nothing to decide any more.
    void forget();

private:
    /// What adding slept time changes.
    struct ZLRecordedTimes {
        QList<std::pair<ZLChapterPointer, double>> timeStamps {};
        double duration = 0.0;
        QList<ZLSleepWhileRecording> sleeps {};
    };

    void exchangeTimes(const ZLRecordedTimes& times, const QString& actionName);

    ZLDocumentBasis& m_basis;
    ZLRecordingClock& m_clock;
    ZLSleepWatcher& m_sleepWatcher;
    QList<ZLSleepWhileRecording> m_sleeps;
    double m_lastNoticedAt = 0.0;
};
