#pragma once

#include <QDBusConnection>
#include <QProcess>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>
#include <QVariantList>

#include <memory>
#include <optional>

/// A message bus of the test's own, with one mock of a service on it. It starts nothing but what it is offered.
class ZLPrivateBus {
public:
    ZLPrivateBus();
    ~ZLPrivateBus();

    /// Empty when the bus runs.
    [[nodiscard]] QString error() const { return m_error; }
    /// A connection that this object closes.
    [[nodiscard]] QDBusConnection connection();

    /// Starts the mock, a Python program that prints "ready" when it has its name, in place of an earlier one; false
    /// when it does not come up.
    [[nodiscard]] bool startMock(const QString& program, const QStringList& arguments = {});
    void endMock();
    /// Lets the bus start the Python program when a program wants this service; the bus's end ends it.
    void offerService(const QString& name, const QString& program);
    /// Ends the bus itself.
    void end();

    /// For programs that shall find this bus.
    [[nodiscard]] QString address() const { return m_address; }

    /// Calls a method and waits for the answer.
    QVariant call(const QString& service, const QString& path, const QString& interface, const QString& method,
        const QVariantList& arguments = {});

private:
    QTemporaryDir m_folder;
    QProcess m_daemon;
    QString m_address;
    QString m_error;
    QStringList m_connectionNames;
    std::optional<QDBusConnection> m_caller;
    std::unique_ptr<QProcess> m_mock;
};
