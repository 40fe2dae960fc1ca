#pragma once

/// The files and connections that this process may have open at once.
namespace ZLDescriptors {

/// Raises the bound from the usual 1024 as far as the system lets this user, to 65,536 at most. Programs that this one
/// starts inherit it.
void raiseBound();

/// Whether half of them are taken. The other half is for threads, connections and the toolkit, which ends the process
/// where a new thread finds none.
[[nodiscard]] bool areScarce();

}
