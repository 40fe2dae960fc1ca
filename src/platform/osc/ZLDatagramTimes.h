#pragma once

#include <optional>

/// When the kernel received a datagram, which may be long before a thread gets to read it.
namespace ZLDatagramTimes {

/// Makes the kernel note the time of each datagram that comes to the socket.
void switchOn(int descriptor);

/// Seconds since the kernel received the datagram that is read next; absent when it does not say. A change of the wall
/// clock in between makes it wrong by as much.
[[nodiscard]] std::optional<double> ageOfNext(int descriptor);

}
