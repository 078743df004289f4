// The numbers that texts hold, strictly or as far as they can be read, as exact decimals.
#pragma once

#include "core/decimal.hpp"

namespace tolvex {

// The whole text is a number: blanks around it, sign, digits with "," between thousands, "." and an exponent.
// Throws Error 13 for anything else, and for "14,321": a host with a decimal comma means less by it than one
// that groups thousands.
Decimal decimal_of(TextView text);

// What a text begins with, blanks skipped; 0 when that is no number.
Decimal leading_decimal(TextView text);

} // namespace tolvex
