#pragma once

#include "platform/osc/ZLOSCInPort.h"

#include <gtest/gtest.h>

/// An input on a port that the system chose, and what it reported.
class ZLRecordedInput {
public:
    ZLRecordedInput()
    {
        EXPECT_TRUE(port.bind(ZLOSCPortRange::exactly(0)).isOk());
        QObject::connect(&port, &ZLOSCInPort::messageReceived, &port,
            [this](const ZLOSCReceivedMessage& received) { messages.append(received); });
        QObject::connect(&port, &ZLOSCInPort::datagramDropped, &port,
            [this](const ZLOSCDroppedDatagram& sample) { dropped.append(sample); });
    }

    QStringList addresses() const
    {
        QStringList result;
        for (const ZLOSCReceivedMessage& received : messages)
            result.append(received.message.address());
        return result;
    }

    ZLOSCInPort port { QStringLiteral("Input") };
    QList<ZLOSCReceivedMessage> messages;
    QList<ZLOSCDroppedDatagram> dropped;
};
