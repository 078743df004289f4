// The tables that an embedded database creates by itself.
#pragma once

#include <string_view>

namespace tolvex {

// Creation script of every table and index (ASCII). Column kinds are declared with SQL Server's names.
std::string_view embedded_schema();

} // namespace tolvex
