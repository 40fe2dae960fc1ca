#pragma once

#include "platform/ZLResult.h"

#include <QDBusConnection>
#include <QString>

#include <functional>

class QObject;

/// Who stands behind a service's name on a message bus. The answer to a call does not tell it reliably: some versions
/// of the bus library leave the sender of an answer empty.
namespace ZLBusNameOwner {

using Answer = std::function<void(const ZLResult<QString>& owner)>;

/// Asks the bus for the unique name of the program that has `service`, and has the bus start that program where none
/// runs and the desktop knows one. The answer comes once, unless `context` goes before; its error is the bus's text.
void find(const QDBusConnection& bus, const QString& service, int patienceMilliseconds, QObject* context,
    const Answer& answer);

}
