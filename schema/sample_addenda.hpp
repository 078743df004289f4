// The addenda layout of one of the demonstration's customers; layouts have no maintenance window.
#pragma once

#include "database/connection.hpp"

namespace tolvex {

// Writes it anew. Throws Error.
void store_sample_addenda(Connection& connection);

} // namespace tolvex
