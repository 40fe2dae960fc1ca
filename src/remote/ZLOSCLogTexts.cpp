#include "remote/ZLOSCLogTexts.h"

#include "commands/ZLRemoteActions.h"

#include <QCoreApplication>

namespace {

struct LogTexts {
    Q_DECLARE_TR_FUNCTIONS(ZLOSCLog)
};

/// The address as the log shows it.
QString shownAddress(const QString& address)
{
    return ZLOSCMessage(address).description();
}

/// The arguments alone, out of the description of a message.
QString valueInDescription(const QString& description, const QString& shownAddress)
{
    return description.startsWith(shownAddress) ? description.sliced(shownAddress.size()).trimmed() : description;
}

/// `value` as the log shows it.
QString reasonToIgnoreValue(const QString& address, const QString& value)
{
    if (!ZLRemoteActions::actionForOSCAddress(address))
        return LogTexts::tr("ignored: unknown address");
    return value.isEmpty() ? LogTexts::tr("ignored: no value") : LogTexts::tr("ignored: value %1").arg(value);
}

QString reasonToRefuse(ZLOSCAccept accept)
{
    switch (accept) {
    case ZLOSCAccept::ThisComputerOnly:
        return LogTexts::tr("dropped: not from this computer");
    case ZLOSCAccept::DirectlyConnectedNetworks:
        return LogTexts::tr("dropped: not from a directly connected network");
    case ZLOSCAccept::OnlyTheseAddresses:
        break;
    }
    return LogTexts::tr("dropped: not from one of the accepted addresses");
}

QString outcomeOfDropped(const ZLOSCDroppedDatagram& dropped, const QString& value, ZLOSCAccept accept)
{
    switch (dropped.reason) {
    case ZLOSCDropReason::RefusedSender:
        return reasonToRefuse(accept);
    case ZLOSCDropReason::Malformed:
        return LogTexts::tr("dropped: malformed");
    case ZLOSCDropReason::Filtered:
        return reasonToIgnoreValue(dropped.address, value);
    case ZLOSCDropReason::Overflow:
        break;
    }
    return LogTexts::tr("dropped older messages: too many at once");
}

}

ZLOSCLogEntry ZLOSCLogTexts::entryFor(
    const ZLOSCMessage& message, ZLOSCLogEntry::Direction direction, const QString& peer)
{
    const QString address = shownAddress(message.address());
    return {
        .time = QDateTime::currentDateTime(),
        .direction = direction,
        .peer = peer,
        .address = address,
        .value = valueInDescription(message.description(), address),
    };
}

ZLOSCLogEntry ZLOSCLogTexts::entryForDropped(const ZLOSCDroppedDatagram& dropped, ZLOSCAccept accept)
{
    const QString address = shownAddress(dropped.address);
    const QString value = valueInDescription(dropped.detail, address);
    return {
        .time = QDateTime::fromMSecsSinceEpoch(dropped.receivedAt),
        .direction = ZLOSCLogEntry::Direction::In,
        .peer = dropped.peer.text(),
        .address = address,
        .value = value,
        .outcome = outcomeOfDropped(dropped, value, accept),
        .isProblem = true,
    };
}

QString ZLOSCLogTexts::reasonToIgnore(const ZLOSCMessage& message)
{
    return reasonToIgnoreValue(
        message.address(), valueInDescription(message.description(), shownAddress(message.address())));
}

QString ZLOSCLogTexts::outcomeOfSending(bool wasSent, const ZLOSCOutPort& port)
{
    if (wasSent)
        return LogTexts::tr("sent");
    if (port.state() == ZLOSCOutPort::State::Resolving)
        return LogTexts::tr("not sent: the host is being looked up");
    return port.failure().isEmpty() ? LogTexts::tr("not sent") : LogTexts::tr("not sent: %1").arg(port.failure());
}
