// The programs of a batch file run one by one in the console of the program that asks for them, without the
// windows that the script host's shell opens: how the command runs them. In a host's process they never are.
#pragma once

#include "platform/batch_lines.hpp"
#include "platform/batch_runner.hpp"

namespace tolvex {

void run_programs_in_console(); // from now on
bool programs_run_in_console();

// The full path of a program; empty when there is none. One that is not in the folder that its path names is
// looked for beside this program and in the PATH.
Text program_of(const Text& given);

// Runs a command line to its end and gives its exit code: the interpreter's own, 9009, when there is no such
// program.
int run_in_console(const BatchCommand& command, WindowStyle style);

} // namespace tolvex
