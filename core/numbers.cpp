#include "core/numbers.hpp"

#include "core/decimal_reader.hpp"
#include "core/errors.hpp"

#include <cmath>
#include <limits>

namespace tolvex {

namespace {

Text shortest(const Decimal& number)
{
    std::string integer = integer_digits(number);
    if (integer.empty()) integer = "0";
    const std::string fraction = fraction_digits(number);
    return to_text((number.negative ? "-" : "") + integer + (fraction.empty() ? "" : "." + fraction));
}

template <class Integer>
Integer nearest(double number)
{
    if (!std::isfinite(number)) throw overflow();
    const double whole = std::nearbyint(number); // ties to even, the default rounding mode
    if (whole < std::numeric_limits<Integer>::min() || whole > std::numeric_limits<Integer>::max())
        throw overflow();
    return static_cast<Integer>(whole);
}

} // namespace

Currency::Currency(double units) : Currency(currency_of(decimal_of(units))) {}

std::int64_t Currency::does_not_fit() { throw overflow(); }

Text amount_as_text(Currency amount) { return shortest(decimal_of(amount)); }

Text number_as_text(double number) { return shortest(decimal_of(number)); }

Text decimal(std::int64_t number) { return to_text(std::to_string(number)); }

double to_number(TextView text) { return to_double(decimal_of(text)); }

Currency to_currency(TextView text) { return currency_of(decimal_of(text)); }

double leading_number(TextView text) { return to_double(leading_decimal(text)); }

std::int16_t to_int16(double number) { return nearest<std::int16_t>(number); }

std::int32_t to_int32(double number) { return nearest<std::int32_t>(number); }

double round_half_even(double number, int decimals)
{
    return to_double(rounded(decimal_of(number), decimals, Tie::to_even));
}

} // namespace tolvex
