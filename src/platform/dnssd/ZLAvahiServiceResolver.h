#pragma once

#include "platform/dnssd/ZLAvahiInstance.h"
#include "platform/dnssd/ZLAvahiObject.h"
#include "platform/dnssd/ZLFoundService.h"

#include <optional>

class QDBusMessage;

/// Follows where one instance of a service is to be reached, also when that changes.
class ZLAvahiServiceResolver final : public ZLAvahiObject {
    Q_OBJECT

public:
    ZLAvahiServiceResolver(const ZLAvahiDaemon& daemon, const ZLAvahiInstance& instance, QObject* parent);

    /// Nothing until it is known, and when what is said cannot be an address and a port.
    [[nodiscard]] const std::optional<ZLFoundService>& service() const { return m_service; }

Q_SIGNALS:
    void serviceDidChange();

protected:
    void objectWasCreated() override;

private Q_SLOTS:
    void receiveFound(const QDBusMessage& message);

private:
    ZLAvahiInstance m_instance;
    std::optional<ZLFoundService> m_service;
};
