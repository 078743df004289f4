// Cuts a T-SQL text into its tokens.
#pragma once

#include "database/embedded/tsql/tokens.hpp"

namespace tolvex::embedded {

// Views into the text, without blanks and comments. A quote that nobody closes runs to the end.
Tokens tokenize(TextView sql);

} // namespace tolvex::embedded
