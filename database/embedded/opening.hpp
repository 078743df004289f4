// What a file of the embedded database needs before its first statement.
#pragma once

#include "database/embedded/database.hpp"

namespace tolvex::embedded {

// Time-outs, functions, encoding, write-ahead log, full flushing and, for a new file, its tables. Returns
// whether the file took the write-ahead log. Throws Error.
bool prepare(Database& database, int timeout_seconds);

} // namespace tolvex::embedded
