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

} // namespace tolvex
