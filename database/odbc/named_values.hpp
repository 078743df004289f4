// Statements with "@name"s on their way to a driver that knows "?" only.
#pragma once

#include "database/driver.hpp"

namespace tolvex::odbc {

// The statement run by the server with its parameters declared and a "?" for the value of each.
Text with_named_values(const Text& sql, const std::vector<NamedValue>& parameters);
Text call_with_named_values(const Text& procedure, const std::vector<NamedValue>& parameters);
std::vector<Value> values_of(const std::vector<NamedValue>& parameters);

} // namespace tolvex::odbc
