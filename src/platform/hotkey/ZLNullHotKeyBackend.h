#pragma once

#include "platform/hotkey/ZLHotKeyCenter.h"

/// The back end for a window system without system-wide keys: every hot key is refused.
class ZLNullHotKeyBackend final : public ZLHotKeyCenter {
    Q_OBJECT

public:
    using ZLHotKeyCenter::ZLHotKeyCenter;

    [[nodiscard]] QString backendName() const override;
    [[nodiscard]] QString unavailabilityReason() const override;

protected:
    void activateHotKey(const ZLHotKey& hotKey) override;
    void deactivateHotKey(const ZLHotKey& hotKey) override;
};
