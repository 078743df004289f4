// The errors of connections and result sets, under the numbers that automation hosts know. Those of the
// driver itself have database_error as their number.
#pragma once

#include "tolvex/errors.hpp"

namespace tolvex {

namespace numbers {
inline constexpr std::int32_t no_current_row = 3021, no_such_column = 3265, no_rows_returned = 3704,
                              connection_closed = 3709;
}

Error no_current_row();
Error no_such_column(TextView name);
Error no_rows_returned(); // a query whose statement gives none
Error connection_closed();

} // namespace tolvex
