// The display patterns of amounts in the original string, the XML document and the rows.
#pragma once

#include "core/display_patterns.hpp"
#include "core/numbers.hpp"

namespace tolvex {

inline constexpr TextView amount_pattern = u"########0.00";
inline constexpr TextView total_pattern = u"##########0.00";
inline constexpr TextView rate_pattern = u"####0.00";
inline constexpr TextView exchange_rate_pattern = u"#######0.0000";

// A staged amount rounded to two decimals, as a number. Throws Error 13 when it is none.
inline double rounded_amount(TextView staged) { return to_number(format(staged, u"#########0.00")); }

} // namespace tolvex
