// The command lines of a batch file, taken apart.
#pragma once

#include "core/text.hpp"

namespace tolvex {

struct BatchCommand
{
    std::vector<Text> words; // program and arguments
    Text output;             // the file after ">"; empty for none
};

// One command per line that is not empty. Words stand between blanks or in double quotes.
std::vector<BatchCommand> parse_batch(TextView batch);

// Tells the log of a command line that was run; what follows an option for passwords stays out of it.
void log_program(const BatchCommand& command, int exit_code, std::int64_t milliseconds);

} // namespace tolvex
