#pragma once

#include "platform/ZLResult.h"

#include <QObject>
#include <QString>

#include <functional>

/// Secrets of the user in the keyring of the desktop. Where there is none, nothing is kept.
class ZLKeyring : public QObject {
    Q_OBJECT

public:
    using QObject::QObject;

    /// Later, unless the object goes before: the secret, empty where none is stored or there is no keyring.
    virtual void read(const QString& name, std::function<void(const QString& secret)> done) = 0;
    /// Later: whether it was stored, or why not. An empty secret is removed.
    virtual void write(const QString& name, const QString& secret, std::function<void(const ZLStatus&)> done) = 0;
};
