#pragma once

#include "platform/osc/ZLOSCOutPort.h"
#include "platform/osc/ZLOSCReception.h"
#include "remote/ZLOSCLog.h"
#include "settings/ZLSettingsManager.h"

/// What the log says about messages. Whatever came from outside is shown with its control characters escaped.
namespace ZLOSCLogTexts {

/// Still without an outcome, at the present time.
[[nodiscard]] ZLOSCLogEntry entryFor(
    const ZLOSCMessage& message, ZLOSCLogEntry::Direction direction, const QString& peer);
[[nodiscard]] ZLOSCLogEntry entryForDropped(const ZLOSCDroppedDatagram& dropped, ZLOSCAccept accept);

/// "ignored: value 0" or "ignored: unknown address".
[[nodiscard]] QString reasonToIgnore(const ZLOSCMessage& message);
/// "sent", or why not.
[[nodiscard]] QString outcomeOfSending(bool wasSent, const ZLOSCOutPort& port);

}
