#include "platform/hotkey/ZLPortalRequest.h"

#include <QDBusError>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QLoggingCategory>

using namespace Qt::StringLiterals;

namespace {

Q_LOGGING_CATEGORY(portalRequestLog, "zelta.platform.hotkey.portal", QtInfoMsg)

const QString portalRequestInterface = u"org.freedesktop.portal.Request"_s;

bool meansNoSuchMethod(QDBusError::ErrorType error)
{
    return error == QDBusError::UnknownMethod || error == QDBusError::UnknownInterface
        || error == QDBusError::UnknownObject;
}

}

ZLPortalRequest::ZLPortalRequest(const QDBusConnection& bus, const QString& portal, QObject* parent)
    : QObject(parent)
    , m_bus(bus)
    , m_portal(portal)
{
}

ZLPortalRequest::~ZLPortalRequest()
{
    if (m_isOpen)
        m_bus.send(QDBusMessage::createMethodCall(m_portal, path(), portalRequestInterface, u"Close"_s));
}

void ZLPortalRequest::call(const QString& interface, const QString& method, const QVariantList& arguments)
{
    m_isOpen = true;
    // Before the call, since the response may come before the call's own reply.
    if (!m_bus.connect(
            m_portal, path(), portalRequestInterface, u"Response"_s, this, SLOT(receiveResponse(uint, QVariantMap)))) {
        qCWarning(portalRequestLog) << "cannot listen for the response to" << method;
        QMetaObject::invokeMethod(this, [this] { finish(Outcome::Failed); }, Qt::QueuedConnection);
        return;
    }
    QDBusMessage message =
        QDBusMessage::createMethodCall(m_portal, u"/org/freedesktop/portal/desktop"_s, interface, method);
    message.setArguments(arguments);
    auto* const watcher = new QDBusPendingCallWatcher(m_bus.asyncCall(message), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, &ZLPortalRequest::receiveReply);
}

QString ZLPortalRequest::newToken()
{
    static quint32 count = 0;
    return u"zelta%1"_s.arg(++count);
}

void ZLPortalRequest::receiveResponse(uint response, const QVariantMap& results)
{
    switch (response) {
    case 0:
        finish(Outcome::Granted, results);
        return;
    case 1:
        finish(Outcome::Declined);
        return;
    default:
        finish(Outcome::Failed);
    }
}

void ZLPortalRequest::receiveReply(QDBusPendingCallWatcher* watcher)
{
    watcher->deleteLater();
    const QDBusError error = watcher->error();
    if (!error.isValid())
        return;
    qCInfo(portalRequestLog) << "refused:" << error.name() << error.message();
    finish(meansNoSuchMethod(error.type()) ? Outcome::Unsupported : Outcome::Failed);
}

void ZLPortalRequest::finish(Outcome outcome, const QVariantMap& results)
{
    if (!m_isOpen)
        return;
    m_isOpen = false;
    Q_EMIT finished(outcome, results);
}

QString ZLPortalRequest::path() const
{
    QString sender = m_bus.baseService().mid(1);
    return u"/org/freedesktop/portal/desktop/request/"_s + sender.replace(u'.', u'_') + u'/' + m_token;
}
