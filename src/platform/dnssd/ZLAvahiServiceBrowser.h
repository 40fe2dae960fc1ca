#pragma once

#include "platform/dnssd/ZLAvahiDaemon.h"
#include "platform/dnssd/ZLAvahiInstance.h"
#include "platform/dnssd/ZLServiceBrowser.h"

#include <map>

class ZLAvahiServiceResolver;
class ZLAvahiTypeWatch;

/// Looks through Avahi, anew whenever Avahi starts.
class ZLAvahiServiceBrowser final : public ZLServiceBrowser {
    Q_OBJECT

public:
    /// A network full of announcements must not fill this program's memory, nor use up what Avahi grants it.
    static constexpr int maximumInstances = 256;

    /// `type` is as in "_http._tcp".
    explicit ZLAvahiServiceBrowser(const QString& type,
        const QDBusConnection& bus = ZLAvahiDaemon::connectToSystemBus(), QObject* parent = nullptr);
    ~ZLAvahiServiceBrowser() override;

private:
    void daemonDidChange();
    void startWatch();
    void stopWatch();
    void addInstance(const ZLAvahiInstance& instance);
    void removeInstance(const ZLAvahiInstance& instance);
    void updateServices();

    QString m_type;
    ZLAvahiDaemon m_daemon;
    ZLAvahiTypeWatch* m_watch = nullptr;
    std::map<ZLAvahiInstance, ZLAvahiServiceResolver*> m_resolvers;
};
