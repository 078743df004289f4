// T-SQL, as the system and its users write it, to the embedded engine's own SQL.
#pragma once

#include "tolvex/types.hpp"

namespace tolvex::embedded {

// Never inside literals. What it does not understand goes through as it is. The functions that the result
// calls are those of functions.hpp. docs/embedded-database.md lists what it understands.
Text to_sqlite(TextView sql);

} // namespace tolvex::embedded
