// The rows of an embedded statement, read as they are asked for.
#pragma once

#include "database/embedded/statement.hpp"

namespace tolvex::embedded {

// Runs the statement up to its first row.
std::unique_ptr<Cursor> rows_of(Statement statement);

// What a text without any query answers.
std::unique_ptr<Cursor> no_rows();

} // namespace tolvex::embedded
