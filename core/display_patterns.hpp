// Numbers, amounts and dates as people and documents show them, by patterns. Numbers are rounded in their
// decimal form, a tie away from zero.
#pragma once

#include "tolvex/types.hpp"

namespace tolvex {

// Number by a pattern ("########0.00", "#,##0.00", "#######0.0000"). A pattern without "0" and "#" is a
// literal and stands for itself.
Text format(double number, TextView pattern);
Text format(Currency amount, TextView pattern);
// The same for a text that holds a number; any other text, and a number that no double holds, comes back
// unchanged.
Text format(TextView text, TextView pattern);
// Date by a pattern of yyyy, mm, dd, hh (24 hours), mm after hh (minutes), ss, any letter case, and literals.
Text format(Date date, TextView pattern);

} // namespace tolvex
