#pragma once

#include <QString>

/// Names of services on the network: any text of up to 63 bytes of UTF-8.
namespace ZLServiceName {

/// The longest name, in bytes of UTF-8.
constexpr int maximumBytes = 63;

/// The name on one line: control characters and those that turn the direction of writing become spaces.
[[nodiscard]] QString cleaned(const QString& name);
/// The cleaned and trimmed name, cut between characters to the length a network takes.
[[nodiscard]] QString fitting(const QString& name);

}
