// Arithmetic of the expression language: whole numbers and amounts stay exact and overflow, everything else
// is floating.
#pragma once

#include "core/decimal.hpp"
#include "printing/expressions/variant.hpp"

namespace tolvex::printing {

// Whether it is one by its kind: a whole number, an amount or a floating number.
bool is_number(const Variant& value);
// The value as a whole number, an amount or a floating number. Throws Error 13 for what is no number.
Variant as_number(const Variant& value);

// Each of these throws Error 13 for what is no number, 6 on overflow, 11 on a division by zero.
Variant sum(const Variant& left, const Variant& right);
Variant difference(const Variant& left, const Variant& right);
Variant product(const Variant& left, const Variant& right);
double quotient(const Variant& left, const Variant& right);
std::int64_t whole_quotient(const Variant& left, const Variant& right);
Variant remainder(const Variant& left, const Variant& right);
double power(const Variant& left, const Variant& right);
Variant negated(const Variant& value);

// -1, 0, 1 by value, whatever the kinds of number.
int compare_numbers(const Variant& left, const Variant& right);

// A number as its decimal digits: a floating one at 15, the others exact.
Decimal exact_decimal(const Variant& value);
// An amount when four decimals hold the number, else a floating one.
Variant amount_or_number(const Decimal& number);

// Throws Error 6 when it does not fit 64 bits.
std::int64_t nearest_whole(double number);
std::int64_t whole_of(const Decimal& number);
// The number itself. Throws Error 6 for an infinity, 5 for what is no number.
double finite(double number);

template <class Value>
int sign_of_difference(const Value& a, const Value& b)
{
    return a < b ? -1 : (b < a ? 1 : 0);
}

} // namespace tolvex::printing
