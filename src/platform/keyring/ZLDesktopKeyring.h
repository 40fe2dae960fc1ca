#pragma once

#include "platform/keyring/ZLKeyring.h"

/// The keyring that the desktop has, over QtKeychain.
class ZLDesktopKeyring final : public ZLKeyring {
    Q_OBJECT

public:
    using ZLKeyring::ZLKeyring;

    void read(const QString& name, std::function<void(const QString& secret)> done) override;
    void write(const QString& name, const QString& secret, std::function<void(const ZLStatus&)> done) override;
};
