#pragma once

#include <QByteArray>
#include <QProcess>
#include <QString>

/// A JACK server of the test's own, without sound hardware. While the object lives, this process's clients go to it.
class ZLPrivateJackServer {
public:
    ZLPrivateJackServer();
    ~ZLPrivateJackServer();

    /// False when it does not run.
    [[nodiscard]] bool start();
    /// As when it crashes.
    void kill();

private:
    QByteArray m_earlierName;
    QString m_name;
    QProcess m_server;
};
