// A number as its decimal digits, the form in which the system reads, rounds and writes numbers: 2.675 is
// what it looks like.
#pragma once

#include "tolvex/types.hpp"

namespace tolvex {

// 0.DIGITS times 10 to the power of point. The digits neither begin nor end with a zero; zero has no digits
// and no sign.
struct Decimal
{
    bool negative = false;
    std::string digits;
    int point = 0;

    bool is_zero() const { return digits.empty(); }
};

// The same number without zeros at the ends of its digits.
Decimal normalized(Decimal number);

// At 15 significant digits. Throws Error 6 for an infinity and for what is no number.
Decimal decimal_of(double number);
Decimal decimal_of(Currency amount);

// Where a number goes that lies just between two.
enum class Tie
{
    away_from_zero,
    to_even
};
Decimal rounded(Decimal number, int decimals, Tie tie);

// The digits at either side of the point, without zeros that say nothing; empty when there are none.
std::string integer_digits(const Decimal& number);
std::string fraction_digits(const Decimal& number);

// Throws Error 6 beyond a double's range; below it the number is 0.
double to_double(const Decimal& number);
// Four decimals, ties to even. Throws Error 6 when it does not fit.
Currency currency_of(const Decimal& number);

} // namespace tolvex
