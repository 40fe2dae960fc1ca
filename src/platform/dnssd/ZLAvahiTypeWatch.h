#pragma once

#include "platform/dnssd/ZLAvahiInstance.h"
#include "platform/dnssd/ZLAvahiObject.h"

/// Avahi's telling which services of one type come and go on any network.
class ZLAvahiTypeWatch final : public ZLAvahiObject {
    Q_OBJECT

public:
    ZLAvahiTypeWatch(const ZLAvahiDaemon& daemon, const QString& type, QObject* parent);

Q_SIGNALS:
    void appeared(const ZLAvahiInstance& instance);
    void vanished(const ZLAvahiInstance& instance);

protected:
    void objectWasCreated() override;

private Q_SLOTS:
    void receiveNew(
        int interface, int protocol, const QString& name, const QString& type, const QString& domain, uint flags);
    void receiveRemoval(
        int interface, int protocol, const QString& name, const QString& type, const QString& domain, uint flags);
};
