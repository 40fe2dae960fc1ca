#pragma once

#include "platform/activity/ZLBusInhibitor.h"

#include <optional>

/// An inhibition of the session manager that GNOME brought up and other desktops share. It falls asleep and logs out on
/// its own account, without asking the login manager.
class ZLSessionManagerInhibitor final : public ZLBusInhibitor {
    Q_OBJECT

public:
    enum Flag : quint32 {
        LogOut = 1,
        Suspend = 4,
    };

    ZLSessionManagerInhibitor(const QDBusConnection& sessionBus, Flag flag, QObject* parent = nullptr);
    ~ZLSessionManagerInhibitor() override;

protected:
    [[nodiscard]] QDBusMessage question() const override;
    bool keep(const QDBusMessage& answer) override;
    void giveBack() override;

private:
    [[nodiscard]] QDBusMessage managerCall(const QString& method) const;

    Flag m_flag;
    std::optional<quint32> m_cookie;
};
