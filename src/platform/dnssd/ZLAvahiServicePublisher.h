#pragma once

#include "platform/dnssd/ZLAvahiDaemon.h"
#include "platform/dnssd/ZLAvahiEntryGroup.h"
#include "platform/dnssd/ZLServicePublisher.h"

/// Announces through Avahi, anew whenever Avahi starts.
class ZLAvahiServicePublisher final : public ZLServicePublisher {
    Q_OBJECT

public:
    /// How often a name is changed before giving up.
    static constexpr int maximumRenames = 50;

    explicit ZLAvahiServicePublisher(
        const QDBusConnection& bus = ZLAvahiDaemon::connectToSystemBus(), QObject* parent = nullptr);
    ~ZLAvahiServicePublisher() override;

    void publish(const QString& name, const QString& type, quint16 port) override;
    void withdraw() override;

private:
    void daemonDidChange();
    void announce();
    void startGroup();
    void dropGroup();
    void groupDidCollide();
    void groupDidFail(const QString& reason);
    void rename(const QString& name);
    void showState(State state, const QString& text);

    ZLAvahiDaemon m_daemon;
    ZLAvahiEntryGroup* m_group = nullptr;
    /// What was asked for, with the name as asked for; without a type, nothing was.
    ZLAvahiEntryGroup::Service m_wish;
    QString m_name;
    int m_renames = 0;
    /// Counts announcements, so that a new name that comes too late is dropped.
    quint64 m_announcement = 0;
};
