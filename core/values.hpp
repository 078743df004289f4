// Values: the exact conversions of the system between text, numbers, amounts and dates.
//
// Numbers are read and rounded in their decimal form (15 significant digits for a double), so that 2.675 is
// what it looks like. Display patterns round a tie away from zero; "rounded to n decimals" rounds it to even.
#pragma once

#include "core/text.hpp"

namespace tolvex {

// Shortest decimal form: no grouping, "." as point, no trailing zeros (13.5, 0, -0.0005).
Text amount_as_text(Currency amount);
// The same for a double, at 15 significant digits.
Text number_as_text(double number);
// Plain decimal text of a whole number.
Text decimal(std::int64_t number);

// Number by a display pattern ("########0.00", "#,##0.00", "#######0.0000"). A pattern without "0" and "#" is
// a literal and stands for itself.
Text format(double number, TextView pattern);
Text format(Currency amount, TextView pattern);
// The same for a text that holds a number; any other text comes back unchanged.
Text format(TextView text, TextView pattern);
// Date by a pattern of yyyy, mm, dd, hh (24 hours), mm after hh (minutes), ss, any letter case, and literals.
Text format(Date date, TextView pattern);

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

struct CalendarDate
{
    int year, month, day, hour, minute, second;
};
// Calendar of an automation date, to the nearest second. Throws Error 6 outside the years 100 to 9999.
CalendarDate calendar(Date date);
int year_of(Date date);
// Reads "yyyy-mm-dd", with "T" or a blank and "hh:mm[:ss[.fff]]" after it, and the same with "/".
// Throws Error 13 for anything else and for a day that does not exist.
Date to_date(TextView text);

} // namespace tolvex
