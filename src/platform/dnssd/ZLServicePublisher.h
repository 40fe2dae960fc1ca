#pragma once

#include "platform/dnssd/ZLFoundService.h"

#include <QObject>
#include <QString>

/// Announces one service on the network, for as long as this object lives.
class ZLServicePublisher : public QObject {
    Q_OBJECT

public:
    enum class State {
        /// Nothing is to be announced.
        Idle,
        /// This computer has nothing to announce with; the service is announced as soon as it has.
        Unavailable,
        Publishing,
        Published,
        /// It was refused. Publishing once more tries once more.
        Failed,
    };

    explicit ZLServicePublisher(QObject* parent = nullptr);

    /// Announces the service in place of what was announced before. `type` is as in "_http._tcp". The name is cut to
    /// what a network takes, and changed when another service has it. Asking for what already stands changes nothing.
    virtual void publish(const QString& name, const QString& type, quint16 port) = 0;
    virtual void withdraw() = 0;

    [[nodiscard]] State state() const { return m_state; }
    /// The state in a sentence for a person; empty when idle.
    [[nodiscard]] QString stateText() const { return m_stateText; }
    /// The name in use, which may be another one than asked for; empty when nothing is to be announced.
    [[nodiscard]] QString announcedName() const { return m_announcedName; }
    /// Whether a found service of the same type is the one this object announces.
    [[nodiscard]] bool announces(const ZLFoundService& service) const;

Q_SIGNALS:
    /// The state, its sentence or the announced name changed.
    void stateDidChange();

protected:
    void setState(State state, const QString& text, const QString& announcedName);

private:
    State m_state = State::Idle;
    QString m_stateText;
    QString m_announcedName;
};
