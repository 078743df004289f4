// What keeps a connected database from serving the system.
#pragma once

#include "database/connection.hpp"

namespace tolvex {

// Missing tables and columns, columns of another kind, document numbers that the database does not hand out,
// amounts in wrong words: each one line "FE_FOLIOS.nHasta: what is wrong; what to do". Empty when all is
// well. Nothing is written to find out. Throws Error when the connection does not work at all.
std::vector<Text> schema_findings(Connection& connection);

} // namespace tolvex
