// The tables, indexes and the function that the system expects, and how they are made.
#pragma once

#include "database/connection.hpp"

namespace tolvex {

// The whole T-SQL script, batches ended by lines "GO": it creates what is missing and can be run again and
// again.
Text schema_script();

// The batches of a script, in order, without their "GO" lines.
std::vector<Text> batches(const Text& script);

// Creates what the database lacks: on SQL Server by the script, batch by batch, without touching tables that
// are there; an embedded file is completed to the last column. Throws Error with the driver's words at the
// first batch that fails; those before it stay done.
void create_schema(Connection& connection);

} // namespace tolvex
