#pragma once

#include "platform/osc/ZLOSCOutPort.h"

#include <QHash>
#include <QStringList>
#include <QTimer>

/// Remembers what could not be sent to which output, so that it can be tried again, and so that the log is told of a
/// failure once and not at every attempt.
class ZLOSCUnsentMessages : public QObject {
    Q_OBJECT

public:
    static constexpr int RetryMilliseconds = 2000;

    /// An output shall not miss the newest message of any of these addresses.
    explicit ZLOSCUnsentMessages(QStringList statusAddresses, QObject* parent = nullptr);

    /// To be called after each attempt; `failure` is why the message did not go out, empty when it did. Returns whether
    /// that is news: false for a failure that the output had before, with nothing of this address sent since.
    bool note(const ZLOSCOutPort& port, const QString& address, const QString& failure);

    /// The addresses whose newest message the output has not been sent.
    [[nodiscard]] QStringList lackedBy(const ZLOSCOutPort* port) const;

    /// Runs while any output lacks something.
    [[nodiscard]] QTimer& retryTimer() { return m_retryTimer; }

Q_SIGNALS:
    void retryIsDue();

private:
    struct Unsent {
        QStringList lacked {};
        /// By address.
        QHash<QString, QString> failures {};
    };

    [[nodiscard]] QStringList newlyLacked(const ZLOSCOutPort& port, const QString& address) const;
    void updateTimer();

    QStringList m_statusAddresses;
    QHash<const QObject*, Unsent> m_unsent;
    QTimer m_retryTimer;
};
