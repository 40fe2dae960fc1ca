#pragma once

#include "platform/osc/ZLOSCManager.h"

#include <QList>

/// Outputs to those who sent a valid command lately. They live for a while after the last command and are few, so that
/// forged senders cannot make the program send to many.
class ZLOSCAnsweredSenders {
public:
    static constexpr double LifetimeInSeconds = 60;
    static constexpr qsizetype MostSenders = 16;

    /// The manager has to outlive the object.
    explicit ZLOSCAnsweredSenders(ZLOSCManager& manager)
        : m_manager(manager)
    {
    }

    /// Answers the sender of a command from now on, unless another output leads there already or there are too many.
    void noteCommand(const ZLOSCPeer& sender, double now);
    /// Drops those that have been silent for too long, and those that another output leads to by now.
    void update(double now);
    void clear();

    [[nodiscard]] bool contains(const ZLOSCOutPort* port) const;

private:
    struct Sender {
        ZLOSCOutPort* port;
        double lastCommand;
    };

    /// Whether one of the other outputs leads to the sender.
    [[nodiscard]] bool isReachedOtherwise(const ZLOSCPeer& sender) const;

    ZLOSCManager& m_manager;
    QList<Sender> m_senders;
};
