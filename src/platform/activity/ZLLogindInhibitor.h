#pragma once

#include "platform/activity/ZLBusInhibitor.h"

#include <QDBusUnixFileDescriptor>

/// A lock of the login manager. It is a file descriptor: it lasts while it is open, so it cannot outlive the process.
class ZLLogindInhibitor final : public ZLBusInhibitor {
    Q_OBJECT

public:
    enum class Operation {
        Idle, ///< What the system does when the computer is not touched for long, above all falling asleep.
        Shutdown,
    };
    enum class Mode {
        Block, ///< The operation does not happen.
        Delay, ///< The operation waits some seconds until the lock is given back.
    };

    ZLLogindInhibitor(const QDBusConnection& systemBus, Operation operation, Mode mode, QObject* parent = nullptr);

protected:
    [[nodiscard]] QDBusMessage question() const override;
    bool keep(const QDBusMessage& answer) override;
    void giveBack() override;

private:
    Operation m_operation;
    Mode m_mode;
    QDBusUnixFileDescriptor m_lock;
};
