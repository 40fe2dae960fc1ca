#pragma once

#include "platform/ZLResult.h"
#include "platform/osc/ZLOSCMessage.h"

#include <QByteArrayView>

/// Open Sound Control 1.0 on the wire. Decoding trusts nothing: it never reads outside of the datagram, and every
/// count, depth and size is bounded. The reasons it gives are technical and meant for a log.
namespace ZLOSCCodec {

/// What a UDP datagram can carry over IPv4, in bytes; nothing larger is made or read.
inline constexpr qsizetype largestDatagram = 65507;
/// A bundle within a bundle counts 2.
inline constexpr int deepestBundle = 16;
/// Messages and bundles together, over the whole datagram.
inline constexpr int mostElements = 1024;
inline constexpr int mostArguments = 1024;

/// The datagram of one message. Fails when the address does not begin with "/" or the message is too large. A NUL
/// within a text is left out, for the wire knows it only as the end.
ZLResult<QByteArray> encode(const ZLOSCMessage& message);

/// All messages of a datagram in their order, with bundles taken apart and their times ignored; or, when anything in it
/// is malformed, none and the reason. The arguments of an array ([ ]) are listed as if there were no array. A message
/// that ends after its address has no arguments. Bytes of a text argument that are not UTF-8 become U+FFFD.
ZLResult<QList<ZLOSCMessage>> decode(QByteArrayView datagram);

}
