#include "platform/dnssd/ZLAvahiServiceBrowser.h"

#include "platform/dnssd/ZLAvahiServiceResolver.h"
#include "platform/dnssd/ZLAvahiTypeWatch.h"

#include <QLoggingCategory>

using namespace Qt::StringLiterals;

namespace {

Q_LOGGING_CATEGORY(avahiBrowserLog, "zelta.platform.dnssd.browser", QtInfoMsg)

/// Whether the first is the better way to the same service. A program on this computer may listen to this computer
/// alone, so the way inside is the safe one.
bool isBetterWay(const ZLFoundService& way, const ZLFoundService& other)
{
    const auto rank = [](const ZLFoundService& service) {
        const bool isOldProtocol = service.address.protocol() == QAbstractSocket::IPv4Protocol;
        const bool staysInside = service.address.isLoopback();
        return (isOldProtocol ? 2 : 0) + (staysInside == service.isLocal ? 1 : 0);
    };
    return rank(way) > rank(other);
}

}

ZLAvahiServiceBrowser::ZLAvahiServiceBrowser(const QString& type, const QDBusConnection& bus, QObject* parent)
    : ZLServiceBrowser(parent)
    , m_type(type)
    , m_daemon(bus)
{
    connect(&m_daemon, &ZLAvahiDaemon::phaseDidChange, this, &ZLAvahiServiceBrowser::daemonDidChange);
    daemonDidChange();
}

ZLAvahiServiceBrowser::~ZLAvahiServiceBrowser() = default;

void ZLAvahiServiceBrowser::daemonDidChange()
{
    switch (m_daemon.phase()) {
    case ZLAvahiDaemon::Phase::NoBus:
        stopWatch();
        setState(State::Unavailable, tr("Cannot look for services on the network: no system D-Bus"));
        break;
    case ZLAvahiDaemon::Phase::Absent:
        stopWatch();
        setState(State::Unavailable, tr("Cannot look for services on the network: Avahi is not running"));
        break;
    case ZLAvahiDaemon::Phase::Starting:
    case ZLAvahiDaemon::Phase::Running:
        if (!m_watch)
            startWatch();
        break;
    case ZLAvahiDaemon::Phase::Looking:
        setState(State::Browsing, tr("Services on the network are listed as they are found."));
        break;
    }
}

void ZLAvahiServiceBrowser::startWatch()
{
    m_watch = new ZLAvahiTypeWatch(m_daemon, m_type, this);
    connect(m_watch, &ZLAvahiTypeWatch::appeared, this, &ZLAvahiServiceBrowser::addInstance);
    connect(m_watch, &ZLAvahiTypeWatch::vanished, this, &ZLAvahiServiceBrowser::removeInstance);
    connect(m_watch, &ZLAvahiTypeWatch::failed, this, [this](const QString& reason) {
        setState(State::Failed, tr("Avahi could not look for services on the network: %1").arg(reason));
    });
    setState(State::Browsing, tr("Services on the network are listed as they are found."));
}

void ZLAvahiServiceBrowser::stopWatch()
{
    if (m_watch)
        m_watch->retire();
    m_watch = nullptr;
    for (const auto& [instance, resolver] : m_resolvers)
        resolver->retire();
    m_resolvers.clear();
    updateServices();
}

void ZLAvahiServiceBrowser::addInstance(const ZLAvahiInstance& instance)
{
    if (m_resolvers.contains(instance))
        return;
    if (m_resolvers.size() >= maximumInstances) {
        qCInfo(avahiBrowserLog) << "left out, there are too many:" << instance.name;
        return;
    }
    auto* const resolver = new ZLAvahiServiceResolver(m_daemon, instance, this);
    connect(resolver, &ZLAvahiServiceResolver::serviceDidChange, this, &ZLAvahiServiceBrowser::updateServices);
    m_resolvers.emplace(instance, resolver);
}

void ZLAvahiServiceBrowser::removeInstance(const ZLAvahiInstance& instance)
{
    const auto found = m_resolvers.find(instance);
    if (found == m_resolvers.end())
        return;
    found->second->retire();
    m_resolvers.erase(found);
    updateServices();
}

void ZLAvahiServiceBrowser::updateServices()
{
    Services services;
    for (const auto& [instance, resolver] : m_resolvers) {
        const std::optional<ZLFoundService>& way = resolver->service();
        if (!way)
            continue;
        const QString key = instance.name + QChar(0) + instance.domain;
        const auto known = services.constFind(key);
        if (known == services.cend() || isBetterWay(*way, *known))
            services.insert(key, *way);
    }
    setServices(services);
}
