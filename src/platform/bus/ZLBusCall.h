#pragma once

#include <QDBusConnection>
#include <QDBusMessage>

#include <functional>

class QObject;

/// One call on a message bus whose answer comes later.
namespace ZLBusCall {

using Answer = std::function<void(const QDBusMessage&)>;

/// A call of the bus itself.
[[nodiscard]] QDBusMessage questionToBus(const QString& method, const QVariantList& arguments);

/// How long the bus library itself waits.
constexpr int usualPatienceMilliseconds = -1;

/// The answer, which may be an error, comes once, unless `context` goes before.
void send(const QDBusConnection& bus, const QDBusMessage& message, int patienceMilliseconds, QObject* context,
    const Answer& answer);

}
