// What is wrong with a connected database, for a person.
#pragma once

#include "database/connection.hpp"

namespace tolvex::console {

// Prints it; whether nothing is.
bool report_schema(Connection& connection);

} // namespace tolvex::console
