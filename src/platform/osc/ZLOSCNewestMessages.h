#pragma once

#include "platform/osc/ZLOSCMessage.h"

#include <QList>

#include <mutex>
#include <utility>

/// A message whose moment matters.
struct ZLOSCTimedMessage {
    ZLOSCMessage message;
    /// When it reached the computer, in seconds of the host clock.
    double hostTime = 0.0;
};

/// Messages that tell a value again and again, between two threads: of each address only the newest waits. They are
/// beside the queue of the commands, so that no flood of them pushes a command out.
class ZLOSCNewestMessages {
public:
    static constexpr qsizetype MostAddresses = 16;

    /// A message with a further address is dropped where there are too many of them.
    void put(ZLOSCTimedMessage timed)
    {
        const std::scoped_lock lock(m_mutex);
        m_messages.removeIf(
            [&timed](const ZLOSCTimedMessage& other) { return other.message.address() == timed.message.address(); });
        if (m_messages.size() < MostAddresses)
            m_messages.append(std::move(timed));
    }

    /// In the order of their arrival.
    QList<ZLOSCTimedMessage> takeAll()
    {
        const std::scoped_lock lock(m_mutex);
        return std::exchange(m_messages, {});
    }

private:
    std::mutex m_mutex;
    QList<ZLOSCTimedMessage> m_messages;
};
