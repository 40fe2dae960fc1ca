#pragma once

#include <QDBusConnection>
#include <QObject>
#include <QString>
#include <QVariantList>

#include <functional>

class QDBusMessage;
class ZLAvahiDaemon;

/// An object that Avahi keeps for this program. It is made by a method of Avahi's server, talks in signals, and is
/// freed when this object goes. One object is for one Avahi: a new Avahi needs new objects.
class ZLAvahiObject : public QObject {
    Q_OBJECT

public:
    ZLAvahiObject(const ZLAvahiDaemon& daemon, const QString& interface, QObject* parent);
    ~ZLAvahiObject() override;

    /// Frees the object at Avahi now and this one later, without another signal: to be used where a signal of this
    /// object may be the reason.
    void retire();

Q_SIGNALS:
    /// Avahi's own words.
    void failed(const QString& reason);

protected:
    /// Has the object made; objectWasCreated or failed follows.
    void create(const ZLAvahiDaemon& daemon, const QString& method, const QVariantList& arguments);
    /// Connects a signal of the object to a slot of this one; to be done before the object is told to start. Before the
    /// object is created, it connects that signal of every such object, and the slot has to tell them apart.
    void listen(const QString& signal, const char* slot);
    void call(const QString& method, const QVariantList& arguments = {}, const std::function<void()>& next = {});

    virtual void objectWasCreated() = 0;
    virtual void callWasRefused(const QDBusMessage& error);

protected Q_SLOTS:
    void receiveFailure(const QString& reason);

private:
    static void freeObject(QDBusConnection bus, const QString& owner, const QString& path, const QString& interface);
    void release();

    QDBusConnection m_bus;
    QString m_owner;
    QString m_interface;
    QString m_path;
    bool m_isReleased = false;
};
