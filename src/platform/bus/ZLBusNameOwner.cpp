#include "platform/bus/ZLBusNameOwner.h"

#include "platform/bus/ZLBusCall.h"

using namespace Qt::StringLiterals;

namespace {

ZLResult<QString> ownerFromAnswer(const QDBusMessage& answer)
{
    if (answer.type() != QDBusMessage::ReplyMessage)
        return ZLError { answer.errorMessage() };
    return answer.arguments().value(0).toString();
}

}

void ZLBusNameOwner::find(const QDBusConnection& bus, const QString& service, int patienceMilliseconds,
    QObject* context, const Answer& answer)
{
    const auto ask = [=](const ZLBusCall::Answer& receive) {
        ZLBusCall::send(
            bus, ZLBusCall::questionToBus(u"GetNameOwner"_s, { service }), patienceMilliseconds, context, receive);
    };
    const auto receiveStart = [ask, answer](const QDBusMessage& started) {
        if (started.type() == QDBusMessage::ReplyMessage)
            ask([answer](const QDBusMessage& second) { answer(ownerFromAnswer(second)); });
        else
            answer(ZLError { started.errorMessage() });
    };
    ask([=](const QDBusMessage& first) {
        if (first.type() == QDBusMessage::ReplyMessage) {
            answer(ownerFromAnswer(first));
            return;
        }
        constexpr uint noFlags = 0;
        ZLBusCall::send(bus, ZLBusCall::questionToBus(u"StartServiceByName"_s, { service, noFlags }),
            patienceMilliseconds, context, receiveStart);
    });
}
