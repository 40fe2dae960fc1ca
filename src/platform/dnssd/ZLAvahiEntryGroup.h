#pragma once

#include "platform/dnssd/ZLAvahiObject.h"

/// One attempt to announce one service. Exactly what is said last holds: an established service may still collide, when
/// two networks are joined.
class ZLAvahiEntryGroup final : public ZLAvahiObject {
    Q_OBJECT

public:
    struct Service {
        QString name;
        QString type;
        quint16 port = 0;

        friend bool operator==(const Service&, const Service&) = default;
    };

    ZLAvahiEntryGroup(const ZLAvahiDaemon& daemon, const Service& service, QObject* parent);

Q_SIGNALS:
    void established();
    /// Another service has the name.
    void collided();

protected:
    void objectWasCreated() override;
    void callWasRefused(const QDBusMessage& error) override;

private Q_SLOTS:
    void receiveState(int state, const QString& error);

private:
    Service m_service;
};
