#include "platform/osc/ZLOSCReception.h"

using namespace Qt::StringLiterals;

QString ZLOSCPeer::text() const
{
    const bool isIPv6 = address.protocol() == QAbstractSocket::IPv6Protocol;
    return (isIPv6 ? u"[%1]:%2"_s : u"%1:%2"_s).arg(address.toString()).arg(port);
}

ZLOSCInPortCounters ZLOSCReception::counters() const
{
    // Each loads what the receiving thread counts first last, so that the sum of the parts never exceeds the whole.
    ZLOSCInPortCounters now;
    now.overflow = overflow;
    now.accepted = accepted;
    now.filtered = filtered;
    now.malformed = malformed;
    now.refusedSender = refusedSender;
    now.received = received;
    return now;
}
