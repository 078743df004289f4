// A password asked at the terminal.
#pragma once

#include <optional>
#include <string>

namespace tolvex {

// Asks the question at the terminal of the process and reads a line without showing it; nothing where there
// is no terminal.
std::optional<std::string> ask_for_password(const std::string& question);

} // namespace tolvex
