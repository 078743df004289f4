// What a connected database lacks, for a person.
#pragma once

#include "database/connection.hpp"

namespace tolvex::console {

// Prints it; whether the schema is complete.
bool report_schema(Connection& connection);

} // namespace tolvex::console
