#include "platform/dnssd/ZLAvahiTypeWatch.h"

using namespace Qt::StringLiterals;

ZLAvahiTypeWatch::ZLAvahiTypeWatch(const ZLAvahiDaemon& daemon, const QString& type, QObject* parent)
    : ZLAvahiObject(daemon, u"org.freedesktop.Avahi.ServiceBrowser"_s, parent)
{
    constexpr int every = -1;
    create(daemon, u"ServiceBrowserPrepare"_s, { every, every, type, QString(), 0U });
}

void ZLAvahiTypeWatch::objectWasCreated()
{
    listen(u"ItemNew"_s, SLOT(receiveNew(int, int, QString, QString, QString, uint)));
    listen(u"ItemRemove"_s, SLOT(receiveRemoval(int, int, QString, QString, QString, uint)));
    listen(u"Failure"_s, SLOT(receiveFailure(QString)));
    call(u"Start"_s);
}

void ZLAvahiTypeWatch::receiveNew(
    int interface, int protocol, const QString& name, const QString& type, const QString& domain, uint)
{
    Q_EMIT appeared({ interface, protocol, name, type, domain });
}

void ZLAvahiTypeWatch::receiveRemoval(
    int interface, int protocol, const QString& name, const QString& type, const QString& domain, uint)
{
    Q_EMIT vanished({ interface, protocol, name, type, domain });
}
