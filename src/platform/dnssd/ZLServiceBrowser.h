#pragma once

#include "platform/dnssd/ZLFoundService.h"

#include <QList>
#include <QMap>
#include <QObject>
#include <QString>

/// Watches which services of one type are announced on the network, for as long as this object lives. A service is
/// listed once its address and port are known, and once only, over however many networks it is seen.
class ZLServiceBrowser : public QObject {
    Q_OBJECT

public:
    enum class State {
        /// This computer has nothing to look with; looking begins as soon as it has.
        Unavailable,
        Browsing,
        Failed,
    };

    explicit ZLServiceBrowser(QObject* parent = nullptr);

    [[nodiscard]] State state() const { return m_state; }
    /// The state in a sentence for a person.
    [[nodiscard]] QString stateText() const { return m_stateText; }
    /// Sorted by name.
    [[nodiscard]] QList<ZLFoundService> services() const;

Q_SIGNALS:
    void stateDidChange();
    /// One whose address or port changes is removed and added.
    void serviceWasAdded(const ZLFoundService& service);
    void serviceWasRemoved(const ZLFoundService& service);
    /// After each of the two, once services() is up to date as a whole.
    void servicesDidChange();

protected:
    /// Services by the key that identifies them while other things about them change.
    using Services = QMap<QString, ZLFoundService>;

    void setState(State state, const QString& text);
    /// Announces the differences to what was listed before.
    void setServices(const Services& services);

private:
    State m_state = State::Browsing;
    QString m_stateText;
    Services m_services;
};
