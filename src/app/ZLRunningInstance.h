#pragma once

#include "platform/ZLFileLock.h"
#include "remote/ZLCommandSocket.h"

#include <QStringList>

#include <functional>
#include <memory>
#include <optional>

/// What a start asks of the program.
struct ZLLaunchRequest {
    /// Absolute paths.
    QStringList files {};
    bool wantsNewDocument = false;

    bool operator==(const ZLLaunchRequest&) const = default;
};

/// What became of a request that was handed over.
struct ZLHandover {
    /// False when there is no process that could take it.
    bool isTaken = false;
    /// What could not be opened, a sentence each.
    QStringList problems {};
};

/// The one process with windows that a user has. One that is started later hands over what was asked of it and ends;
/// one that crashed hinders no later one.
class ZLRunningInstance {
public:
    /// To be told once what could not be opened, a sentence each.
    using Answer = std::function<void(const QStringList& problems)>;
    /// Carries out a request, and answers when that is done.
    using Handler = std::function<void(const ZLLaunchRequest& request, const Answer& answer)>;

    /// Hands `request` to the process that runs with windows and waits until that has opened everything. Where there is
    /// none, this process may become it. An error when there is one that does not answer.
    [[nodiscard]] static ZLResult<ZLHandover> handOver(
        const ZLLaunchRequest& request, const QString& path = defaultPath());

    /// This process takes what later ones are asked, from now on and in the event loop.
    explicit ZLRunningInstance(Handler handler, const QString& path = defaultPath());
    Q_DISABLE_COPY_MOVE(ZLRunningInstance)

    [[nodiscard]] static QString defaultPath();

private:
    void take(const ZLOSCMessage& message, const ZLCommandSocket::Answer& answer);

    Handler m_handler;
    ZLCommandSocket m_socket;
};
