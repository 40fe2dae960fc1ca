#pragma once

#include <QString>

/// What the user chose about listening along. All of it is stored when it is chosen, and off before.
namespace ZLListeningSettings {

[[nodiscard]] bool isOn();
void setOn(bool on);
/// Identifier of the input; empty for the default one.
[[nodiscard]] QString source();
void setSource(const QString& id);
/// Whether the user was told what is kept, and agreed.
[[nodiscard]] bool isAgreed();
void setAgreed();

}
