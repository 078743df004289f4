// The tables, indexes and the function that the system expects on SQL Server.
#pragma once

#include "database/connection.hpp"

namespace tolvex {

// The whole T-SQL script, batches ended by lines "GO": it creates what is missing and can be run again and
// again.
Text schema_script();

// The batches of a script, in order, without their "GO" lines.
std::vector<Text> batches(const Text& script);

// Runs the script. Throws Error with the driver's words at the first batch that fails; those before it stay
// done.
void create_schema(Connection& connection);

// What the connected database lacks, one line each: "FE_EMPRESAS: why it cannot be read", "FE_FOLIOS.nHasta",
// "dbo.fg_Numero2Letra: …"; empty when all is there. Throws Error when the connection does not work at all.
std::vector<Text> missing_from_schema(Connection& connection);

} // namespace tolvex
