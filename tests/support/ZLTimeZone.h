#pragma once

#include <QByteArray>
#include <QtGlobal>

#include <ctime>

/// Moves the program to another time zone as long as it lives.
class ZLTimeZone {
public:
    explicit ZLTimeZone(const char* name)
        : m_previous(qgetenv("TZ"))
        , m_hadPrevious(qEnvironmentVariableIsSet("TZ"))
    {
        qputenv("TZ", name);
        tzset();
    }
    ~ZLTimeZone()
    {
        if (m_hadPrevious)
            qputenv("TZ", m_previous);
        else
            qunsetenv("TZ");
        tzset();
    }
    Q_DISABLE_COPY_MOVE(ZLTimeZone)

private:
    QByteArray m_previous;
    bool m_hadPrevious;
};
