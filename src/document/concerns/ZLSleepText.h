#pragma once

#include "document/recording/ZLSleepWhileRecording.h"

#include <QCoreApplication>
#include <QList>
#include <QString>

/// What a user is told of a computer that slept during a recording.
class ZLSleepText {
    Q_DECLARE_TR_FUNCTIONS(ZLSleepText)

public:
    /// "The computer slept for 12 min from 14:03. The clock stood still." Empty without a sleep.
    [[nodiscard]] static QString sentence(const QList<ZLSleepWhileRecording>& sleeps);
    /// "45 s", "12 min" or "2 h 5 min".
    [[nodiscard]] static QString length(double seconds);
};
