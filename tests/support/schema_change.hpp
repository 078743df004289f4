// Changes of the schema, which statements of the system may not make on an embedded database.
#pragma once

#include "database/connection.hpp"

namespace tolvex::testing {

// On the connection's database: past the system when it is an embedded one, as any tool would.
void change_schema(Connection& connection, const Text& sql);

// Statements of SQLite's own on a file, outside of the system; the first value that they give.
// Throws Error.
std::string in_sqlite(const Text& file, const std::string& sql);

} // namespace tolvex::testing
