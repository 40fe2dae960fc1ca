#pragma once

#include "platform/keyring/ZLKeyring.h"

#include <QObject>

#include <memory>

/// The password that OBS Studio asks for. It is in the desktop's keyring, else in memory until the program ends; it is
/// never in a file of settings. The variable ZELTA_OBS_PASSWORD goes first.
class ZLOBSPassword : public QObject {
    Q_OBJECT

public:
    explicit ZLOBSPassword(std::unique_ptr<ZLKeyring> keyring);

    /// What is known; load() has to be called once before.
    [[nodiscard]] const QString& text() const { return m_text; }
    /// Asks the keyring, once; didLoad() comes later.
    void load();
    /// Keeps another one, here and in the keyring.
    void setText(const QString& text);
    /// Why the keyring does not keep it; empty where it does.
    [[nodiscard]] const QString& problem() const { return m_problem; }

Q_SIGNALS:
    /// The keyring has given another one than was known.
    void didLoad();
    void problemDidChange();

private:
    std::unique_ptr<ZLKeyring> m_keyring;
    QString m_text;
    QString m_problem;
    bool m_isAskedFor = false;
};
