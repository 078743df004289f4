// What the public methods have in common: how a call begins, and how it tells what does not exist.
#pragma once

#include "session/session.hpp"

namespace tolvex {

// Begins a call: there is no last error yet. Gives the session of the process.
Session& begin_call();

// The result of a look-up, of whose False without an error the last error then tells "No existe …".
bool found(bool result, const Text& what);

} // namespace tolvex
