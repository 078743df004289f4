// This program, run as a user would run it.
#pragma once

#include "console/place.hpp"

#include <string>
#include <vector>

namespace tolvex::console {

// Runs it with those words on the same database, in a session of its own: without a terminal openssl reads a
// password from standard input, which holds the given text. Its output goes where ours goes. The exit code;
// throws Error 5 when it cannot be started.
int run_own_command(const std::vector<std::string>& words, const Place& place, const std::string& input);

} // namespace tolvex::console
