// The command line: which command is asked for, with which options; help and complaints in Spanish.
#pragma once

#include "console/command.hpp"

#include <vector>

namespace tolvex::console {

// Parses the words after the program's name and runs the command it names. The process's exit code: what the
// command gives, 0 for help, 1 when an error ended the command, 2 when the order is badly written.
int run_command_line(std::vector<std::string> words, const std::vector<std::unique_ptr<Command>>& commands);

} // namespace tolvex::console
