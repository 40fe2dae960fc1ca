// Bytes from anywhere into the OSC decoder. What it accepts must keep within its limits, must have a value and a
// description, and must survive being written and read again without a difference.
#include "platform/osc/ZLOSCCodec.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>

namespace {

void require(bool condition)
{
    if (!condition)
        std::abort();
}

void checkMessage(const ZLOSCMessage& message)
{
    require(message.address().startsWith(u'/'));
    require(message.arguments().size() <= ZLOSCCodec::mostArguments);
    (void)message.floatValue();
    require(message.description().size() < 8192);
    const ZLResult<QByteArray> written = ZLOSCCodec::encode(message);
    // Text that was not UTF-8 grows when it is repaired, so that the message may no longer fit.
    if (!written)
        return;
    const ZLResult<QList<ZLOSCMessage>> again = ZLOSCCodec::decode(written.value());
    require(again && again.value().size() == 1);
    // Bytes are compared rather than values: a float that is no number is not equal to itself.
    require(ZLOSCCodec::encode(again.value().front()).value() == written.value());
}

}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    const ZLResult<QList<ZLOSCMessage>> messages = ZLOSCCodec::decode(QByteArrayView(bytes, qsizetype(size)));
    require(messages.isOk() == messages.error().message.isEmpty());
    if (!messages)
        return 0;
    require(messages.value().size() <= ZLOSCCodec::mostElements);
    for (const ZLOSCMessage& message : messages.value())
        checkMessage(message);
    return 0;
}
