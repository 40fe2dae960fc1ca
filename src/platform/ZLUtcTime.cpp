#include "platform/ZLUtcTime.h"

#include <QTimeZone>

QDateTime ZLUtcTime::fromMilliseconds(qint64 milliseconds)
{
    // The only way that is as quick as adding two numbers in every version of Qt 6 and deprecated in none.
    static const QDateTime epoch = QDateTime(QDate(1970, 1, 1), QTime(0, 0), QTimeZone::utc()).toUTC();
    return epoch.addMSecs(milliseconds);
}
