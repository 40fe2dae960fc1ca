#pragma once

#include "platform/ZLPrivateBus.h"

#include <functional>

/// A private bus with a mock of everybody who can keep the system awake.
class ZLActivityBus : public ZLPrivateBus {
public:
    static const QString Logind;
    static const QString SessionManager;
    static const QString Portal;

    /// Only those that are named are there.
    [[nodiscard]] bool startSystem(const QStringList& services);
    QVariant control(const QString& method, const QVariantList& arguments = {});
    void appear(const QString& service) { control(QStringLiteral("Appear"), { service }); }
    void goAway(const QString& service) { control(QStringLiteral("GoAway"), { service }); }
    /// A line for each thing that is held back now, sorted.
    [[nodiscard]] QStringList held() { return control(QStringLiteral("Held")).toStringList(); }

    /// Whether the condition comes true while events are handled.
    [[nodiscard]] static bool comesTrue(const std::function<bool()>& condition);
    [[nodiscard]] bool holds(const QStringList& lines);
};
