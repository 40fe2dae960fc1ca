#pragma once

#include "platform/ZLPrivateBus.h"

/// A private bus with a mock of the desktop portal.
class ZLPortalBus : public ZLPrivateBus {
public:
    /// Waits until the mock portal has its name; false when it does not come up.
    [[nodiscard]] bool startPortal(const QString& kind, const QString& answer);
    void endPortal() { endMock(); }

    /// Calls a control method of the mock and waits for the answer.
    QVariant control(const QString& method, const QVariantList& arguments = {});
    [[nodiscard]] QStringList log() { return control(QStringLiteral("Log")).toStringList(); }
};
