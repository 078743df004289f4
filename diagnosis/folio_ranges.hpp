// The folios that are left in the ranges of a company.
#pragma once

#include "database/connection.hpp"
#include "diagnosis/observation.hpp"

namespace tolvex {

// Of one branch, or of all (0). Throws Error when the database fails.
void look_at_folio_ranges(Connection& connection, std::int16_t company, std::int16_t branch,
                          const Tell& tell);

} // namespace tolvex
