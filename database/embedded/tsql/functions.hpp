// The T-SQL functions that statements call, for the embedded engine.
#pragma once

struct sqlite3;

namespace tolvex::embedded {

// Gives the connection plus (what "+" means), convert, cast_to, year, month, day, substring, left, right,
// len, upper, lower and fg_Numero2Letra. Returns the engine's result code.
int add_functions(sqlite3* connection);

} // namespace tolvex::embedded
