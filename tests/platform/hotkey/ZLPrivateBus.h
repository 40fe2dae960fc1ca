#pragma once

#include <QDBusConnection>
#include <QProcess>
#include <QString>
#include <QTemporaryDir>
#include <QVariantList>

#include <memory>

/// A message bus of the test's own, on which nothing is started by itself, with a mock of the desktop portal.
class ZLPrivateBus {
public:
    ZLPrivateBus();
    ~ZLPrivateBus();

    /// Empty when the bus runs.
    [[nodiscard]] QString error() const { return m_error; }
    /// A connection that this object closes.
    [[nodiscard]] QDBusConnection connection();

    /// Starts the mock portal and waits until it has its name; false when it does not come up.
    [[nodiscard]] bool startPortal(const QString& kind, const QString& answer);
    void endPortal();

    /// Calls a control method of the mock and waits for the answer.
    QVariant control(const QString& method, const QVariantList& arguments = {});
    [[nodiscard]] QStringList log() { return control(QStringLiteral("Log")).toStringList(); }

private:
    QTemporaryDir m_folder;
    QProcess m_daemon;
    QString m_address;
    QString m_error;
    QStringList m_connectionNames;
    std::unique_ptr<QProcess> m_portal;
};
