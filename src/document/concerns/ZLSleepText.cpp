#include "document/concerns/ZLSleepText.h"

#include <QLocale>

#include <cmath>

QString ZLSleepText::sentence(const QList<ZLSleepWhileRecording>& sleeps)
{
    if (sleeps.isEmpty())
        return {};
    double seconds = 0.0;
    for (const ZLSleepWhileRecording& sleep : sleeps)
        seconds += sleep.seconds;
    const QString begin = QLocale().toString(sleeps.first().begin.toLocalTime().time(), QLocale::ShortFormat);
    if (sleeps.size() == 1)
        return tr("The computer slept for %1 from %2. The clock stood still.").arg(length(seconds), begin);
    return tr("The computer slept %1 times, for %2 altogether, first from %3. The clock stood still.")
        .arg(QString::number(sleeps.size()), length(seconds), begin);
}

QString ZLSleepText::length(double seconds)
{
    constexpr qint64 secondsPerMinute = 60;
    constexpr qint64 minutesPerHour = 60;
    const qint64 whole = std::llround(seconds);
    if (whole < secondsPerMinute)
        return tr("%1 s").arg(whole);
    const qint64 minutes = std::llround(seconds / double(secondsPerMinute));
    if (minutes < minutesPerHour)
        return tr("%1 min").arg(minutes);
    return tr("%1 h %2 min").arg(minutes / minutesPerHour).arg(minutes % minutesPerHour);
}
