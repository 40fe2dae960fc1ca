#include "platform/dnssd/ZLAvahiServicePublisher.h"

#include "platform/dnssd/ZLServiceName.h"

using namespace Qt::StringLiterals;

ZLAvahiServicePublisher::ZLAvahiServicePublisher(const QDBusConnection& bus, QObject* parent)
    : ZLServicePublisher(parent)
    , m_daemon(bus)
{
    connect(&m_daemon, &ZLAvahiDaemon::phaseDidChange, this, &ZLAvahiServicePublisher::daemonDidChange);
}

ZLAvahiServicePublisher::~ZLAvahiServicePublisher() = default;

void ZLAvahiServicePublisher::publish(const QString& name, const QString& type, quint16 port)
{
    const ZLAvahiEntryGroup::Service wish { ZLServiceName::fitting(name), type, port };
    const bool isUnderWay = state() == State::Publishing || state() == State::Published;
    if (wish == m_wish && isUnderWay)
        return;
    // A service that only moves to another port keeps the name by which the others know it.
    const bool keepsName = wish.name == m_wish.name && wish.type == m_wish.type && isUnderWay;
    m_wish = wish;
    if (!keepsName)
        m_name = wish.name;
    m_renames = 0;
    announce();
}

void ZLAvahiServicePublisher::withdraw()
{
    m_wish = {};
    m_name.clear();
    announce();
}

void ZLAvahiServicePublisher::daemonDidChange()
{
    m_name = m_wish.name;
    m_renames = 0;
    announce();
}

void ZLAvahiServicePublisher::announce()
{
    ++m_announcement;
    dropGroup();
    if (m_wish.type.isEmpty()) {
        showState(State::Idle, {});
        return;
    }
    if (m_name.isEmpty() || m_wish.port == 0) {
        showState(State::Failed, tr("Not announced on the network: no name or no port"));
        return;
    }
    switch (m_daemon.phase()) {
    case ZLAvahiDaemon::Phase::NoBus:
        showState(State::Unavailable, tr("Not announced on the network: no system D-Bus"));
        break;
    case ZLAvahiDaemon::Phase::Absent:
        showState(State::Unavailable, tr("Not announced on the network: Avahi is not running"));
        break;
    case ZLAvahiDaemon::Phase::Running:
        startGroup();
        [[fallthrough]];
    case ZLAvahiDaemon::Phase::Looking:
    case ZLAvahiDaemon::Phase::Starting:
        showState(State::Publishing, tr("Announcing “%1” on the network…").arg(m_name));
        break;
    }
}

void ZLAvahiServicePublisher::startGroup()
{
    m_group = new ZLAvahiEntryGroup(m_daemon, { m_name, m_wish.type, m_wish.port }, this);
    connect(m_group, &ZLAvahiEntryGroup::established, this, [this] {
        showState(State::Published, tr("Announced on the network as “%1”, port %2.").arg(m_name).arg(m_wish.port));
    });
    connect(m_group, &ZLAvahiEntryGroup::collided, this, &ZLAvahiServicePublisher::groupDidCollide);
    connect(m_group, &ZLAvahiEntryGroup::failed, this, &ZLAvahiServicePublisher::groupDidFail);
}

void ZLAvahiServicePublisher::dropGroup()
{
    if (m_group)
        m_group->retire();
    m_group = nullptr;
}

void ZLAvahiServicePublisher::groupDidCollide()
{
    dropGroup();
    if (++m_renames > maximumRenames) {
        groupDidFail(tr("every name is taken"));
        return;
    }
    showState(State::Publishing, tr("The name “%1” is taken on the network. Trying another one.").arg(m_name));
    const auto receive = [this, announcement = m_announcement](const QDBusMessage& answer) {
        if (announcement != m_announcement)
            return;
        if (answer.type() == QDBusMessage::ErrorMessage)
            groupDidFail(answer.errorMessage());
        else
            rename(answer.arguments().value(0).toString());
    };
    m_daemon.callServer(u"GetAlternativeServiceName"_s, { m_name }, this, receive);
}

void ZLAvahiServicePublisher::rename(const QString& name)
{
    m_name = name;
    announce();
}

void ZLAvahiServicePublisher::groupDidFail(const QString& reason)
{
    dropGroup();
    showState(State::Failed, tr("Not announced on the network: %1").arg(reason));
}

void ZLAvahiServicePublisher::showState(State state, const QString& text)
{
    setState(state, text, m_name);
}
