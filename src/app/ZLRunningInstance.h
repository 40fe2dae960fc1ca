#pragma once

#include "platform/ZLFileLock.h"
#include "remote/ZLCommandSocket.h"

#include <QStringList>

#include <functional>
#include <memory>
#include <optional>

/// What somebody asks of the program by starting it.
struct ZLLaunchRequest {
    /// Absolute paths.
    QStringList files {};
    bool wantsNewDocument = false;

    bool operator==(const ZLLaunchRequest&) const = default;
};

/// The one process with windows that a user has. One that is started later hands over what was asked of it and ends;
/// one that crashed stands in nobody's way.
class ZLRunningInstance {
public:
    using Handler = std::function<void(const ZLLaunchRequest& request)>;

    /// Hands `request` to the process that runs with windows. True when it took it, false when there is none, so that
    /// this process may become it; an error when there is one that does not answer.
    [[nodiscard]] static ZLResult<bool> handOver(const ZLLaunchRequest& request, const QString& path = defaultPath());

    /// This process takes what later ones are asked, from now on and in the event loop.
    explicit ZLRunningInstance(Handler handler, const QString& path = defaultPath());
    Q_DISABLE_COPY_MOVE(ZLRunningInstance)

    [[nodiscard]] static QString defaultPath();

private:
    QString take(const ZLOSCMessage& message);

    Handler m_handler;
    ZLCommandSocket m_socket;
};
