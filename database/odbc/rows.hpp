// The rows of a query, all read at once.
#pragma once

#include "database/driver.hpp"
#include "database/odbc/statement.hpp"

namespace tolvex::odbc {

// Reads the current result set of a statement to its end into memory: a connection of SQL Server serves one
// statement at a time, and callers run others while they walk through their rows. What the system asks for is
// small: the rows of one document, a master table, a month's documents.
std::unique_ptr<Cursor> read_rows(const Statement& statement);

} // namespace tolvex::odbc
