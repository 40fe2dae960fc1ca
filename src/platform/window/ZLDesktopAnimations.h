#pragma once

#include <QDBusConnection>
#include <QMap>
#include <QObject>
#include <QSet>
#include <QVariantMap>

class QDBusPendingCallWatcher;
class QDBusVariant;

/// What the desktop's settings say about things that move by themselves. They are read from the portal that gives them
/// to programs; where no portal runs, things move.
class ZLDesktopAnimations : public QObject {
    Q_OBJECT

public:
    /// Asks at once. The answer comes later, and changes are followed.
    explicit ZLDesktopAnimations(
        const QDBusConnection& sessionBus = QDBusConnection::sessionBus(), QObject* parent = nullptr);

    [[nodiscard]] bool areWanted() const { return m_refusals.isEmpty(); }

Q_SIGNALS:
    void didChange();

private:
    void readAnswer(QDBusPendingCallWatcher* call);
    Q_SLOT void settingDidChange(const QString& group, const QString& key, const QDBusVariant& value);
    void takeSetting(const QString& group, const QString& key, const QVariant& value);

    /// The settings that say no.
    QSet<QString> m_refusals;
};
