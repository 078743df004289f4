// An older file brought to the schema of a new one.
#pragma once

#include "database/embedded/database.hpp"

namespace tolvex::embedded {

// Adds the tables, columns and indexes that the file lacks, and makes its document numbers ones that never
// come back. Rows stay as they are, and what else is in the file too. All of it or nothing; who comes at the
// same time waits. Throws Error.
void complete_schema(Database& file);

} // namespace tolvex::embedded
