#pragma once

#include "platform/ZLPrivateBus.h"

#include <functional>

/// A private bus with a mock of Avahi.
class ZLAvahiBus : public ZLPrivateBus {
public:
    [[nodiscard]] bool startAvahi(const QStringList& arguments = {});

    /// Calls a control method of the mock and waits for the answer.
    QVariant control(const QString& method, const QVariantList& arguments = {});
    [[nodiscard]] QStringList log() { return control(QStringLiteral("Log")).toStringList(); }

    /// Whether the condition comes true while events are handled.
    [[nodiscard]] static bool comesTrue(const std::function<bool()>& condition);
    [[nodiscard]] bool hears(const QString& line);
};
