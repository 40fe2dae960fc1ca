#pragma once

#include "platform/activity/ZLBusInhibitor.h"

#include <QDBusObjectPath>

/// An inhibition through the desktop portal, the way out of a sandbox. It is an object of the portal's that lasts until
/// it is closed or the process leaves the bus.
class ZLPortalInhibitor final : public ZLBusInhibitor {
    Q_OBJECT

public:
    enum Flag : quint32 {
        LogOut = 1,
        Suspend = 4,
    };

    ZLPortalInhibitor(const QDBusConnection& sessionBus, Flag flag, QObject* parent = nullptr);
    ~ZLPortalInhibitor() override;

protected:
    [[nodiscard]] QDBusMessage question() const override;
    bool keep(const QDBusMessage& answer) override;
    void giveBack() override;

private:
    Flag m_flag;
    QDBusObjectPath m_request;
};
