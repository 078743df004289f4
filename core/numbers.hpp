// Numbers and amounts as texts and back, rounded where they have to be, all in their decimal form.
#pragma once

#include "tolvex/types.hpp"

namespace tolvex {

// Shortest decimal form: no grouping, "." as point, no trailing zeros (13.5, 0, -0.0005).
Text amount_as_text(Currency amount);
// The same for a double, at 15 significant digits.
Text number_as_text(double number);
// Plain decimal text of a whole number.
Text decimal(std::int64_t number);

// The number a text holds: blanks around it, sign, digits with "," between thousands, "." and an exponent.
// Throws Error 13 for anything else, the empty text included, and Error 6 beyond a double's range.
double to_number(TextView text);
// The same as an amount: exact, four decimals, ties to even. Error 6 when it does not fit.
Currency to_currency(TextView text);
// Leading numeric part, blanks skipped: " 12 abc" is 12, "abc" is 0. Error 6 beyond a double's range, else
// never.
double leading_number(TextView text);

// Nearest whole number, ties to even. Throws Error 6 out of range.
std::int16_t to_int16(double number);
std::int32_t to_int32(double number);

// Rounded to n decimals, ties to even.
double round_half_even(double number, int decimals);

} // namespace tolvex
