#include "platform/bus/ZLBusCall.h"

#include <QDBusError>
#include <QDBusPendingCall>
#include <QDBusPendingCallWatcher>

using namespace Qt::StringLiterals;

QDBusMessage ZLBusCall::questionToBus(const QString& method, const QVariantList& arguments)
{
    QDBusMessage question = QDBusMessage::createMethodCall(
        u"org.freedesktop.DBus"_s, u"/org/freedesktop/DBus"_s, u"org.freedesktop.DBus"_s, method);
    question.setArguments(arguments);
    return question;
}

void ZLBusCall::send(const QDBusConnection& bus, const QDBusMessage& message, int patienceMilliseconds,
    QObject* context, const Answer& answer)
{
    if (!bus.isConnected()) {
        // The bus library never answers here.
        const auto sayNo = [answer] {
            answer(QDBusMessage::createError(QDBusError::Disconnected, u"there is no message bus"_s));
        };
        QMetaObject::invokeMethod(context, sayNo, Qt::QueuedConnection);
        return;
    }
    auto* const watcher = new QDBusPendingCallWatcher(bus.asyncCall(message, patienceMilliseconds), context);
    QObject::connect(watcher, &QDBusPendingCallWatcher::finished, context, [answer](QDBusPendingCallWatcher* finished) {
        finished->deleteLater();
        answer(finished->reply());
    });
}
