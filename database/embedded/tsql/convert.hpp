// T-SQL's convert and cast, by the values that the embedded database holds.
#pragma once

#include "database/value.hpp"

namespace tolvex::embedded {

constexpr int no_style = -1;

// The value as a type such as "varchar(10)", "decimal(18,2)", "int" or "datetime"; dates are texts. A style
// of 101 and up makes a text that holds a date a date. Throws Error 13 for what cannot be converted, 6 for
// what does not fit and 5 for an unknown type or style.
Value converted(const Value& value, TextView type, int style = no_style);

} // namespace tolvex::embedded
