#include "core/decimal.hpp"

#include "core/errors.hpp"

#include <algorithm>
#include <charconv>
#include <cmath>

namespace tolvex {

namespace {

// Whether the part of the digits from `kept` on rounds the part before it up.
bool rounds_up(const std::string& digits, std::size_t kept, Tie tie)
{
    if (digits[kept] != '5') return digits[kept] > '5';
    if (kept + 1 < digits.size() || tie == Tie::away_from_zero) return true;
    return kept > 0 && (digits[kept - 1] - '0') % 2 == 1;
}

void add_one_to_last_digit(Decimal& number)
{
    for (auto digit = number.digits.rbegin(); digit != number.digits.rend(); ++digit) {
        if (*digit != '9') {
            ++*digit;
            return;
        }
        *digit = '0';
    }
    number.digits.insert(0, 1, '1');
    ++number.point;
}

// Throws Error 6 unless the number, which has no digits after its point, fits 64 bits.
std::int64_t whole_of(const Decimal& number)
{
    const std::string digits =
        (number.negative ? "-" : "") + (number.is_zero() ? "0" : integer_digits(number));
    std::int64_t value = 0;
    if (std::from_chars(digits.data(), digits.data() + digits.size(), value).ec != std::errc())
        throw overflow();
    return value;
}

} // namespace

Decimal normalized(Decimal number)
{
    const auto first = std::min(number.digits.find_first_not_of('0'), number.digits.size());
    number.digits.erase(0, first);
    number.point -= static_cast<int>(first);
    number.digits.erase(number.digits.find_last_not_of('0') + 1);
    if (number.is_zero()) number = {};
    return number;
}

Decimal decimal_of(double number)
{
    if (!std::isfinite(number)) throw overflow();
    // Amounts are whole counts of ten-thousandths, whose digits are found faster. No two decimals of up to 15
    // digits are the same double, so they are the digits.
    const double scaled = std::nearbyint(number * 10'000);
    if (std::abs(scaled) < 1e15 && scaled / 10'000 == number)
        return decimal_of(Currency::from_scaled(static_cast<std::int64_t>(scaled)));
    char buffer[40];
    const auto end =
        std::to_chars(buffer, std::end(buffer), std::abs(number), std::chars_format::scientific, 14).ptr;
    const std::string_view form(buffer, end - buffer); // d.ddddddddddddddE±xx
    const auto exponent_mark = form.find('e');
    int exponent = 0;
    const auto exponent_text = form.substr(exponent_mark + (form[exponent_mark + 1] == '+' ? 2 : 1));
    std::from_chars(exponent_text.data(), exponent_text.data() + exponent_text.size(), exponent);
    std::string digits(form.substr(0, 1));
    digits += form.substr(2, exponent_mark - 2);
    return normalized({std::signbit(number), digits, exponent + 1});
}

Decimal decimal_of(Currency amount)
{
    const bool negative = amount.scaled() < 0;
    std::string digits = std::to_string(amount.scaled()).substr(negative ? 1 : 0);
    if (digits.size() < 4) digits.insert(0, 4 - digits.size(), '0');
    const int point = static_cast<int>(digits.size()) - 4;
    return normalized({negative, digits, point});
}

Decimal rounded(Decimal number, int decimals, Tie tie)
{
    const int kept = number.point + decimals;
    if (kept < 0) return {};
    if (static_cast<std::size_t>(kept) >= number.digits.size()) return number;
    const bool up = rounds_up(number.digits, kept, tie);
    number.digits.resize(kept);
    if (up) add_one_to_last_digit(number);
    return normalized(number);
}

std::string integer_digits(const Decimal& number)
{
    if (number.point <= 0) return {};
    std::string digits = number.digits.substr(0, number.point);
    digits.resize(number.point, '0');
    return digits;
}

std::string fraction_digits(const Decimal& number)
{
    if (number.point >= static_cast<int>(number.digits.size())) return {};
    if (number.point >= 0) return number.digits.substr(number.point);
    return std::string(-number.point, '0') + number.digits;
}

double to_double(const Decimal& number)
{
    const std::string form =
        (number.negative ? "-0." : "0.") + number.digits + "e" + std::to_string(number.point);
    double value = 0;
    const auto result = std::from_chars(form.data(), form.data() + form.size(), value);
    if (result.ec == std::errc::result_out_of_range && number.point > 0) throw overflow();
    return value; // stays 0 for a number too small for a double
}

Currency currency_of(const Decimal& number)
{
    Decimal scaled = rounded(number, 4, Tie::to_even);
    if (!scaled.is_zero()) scaled.point += 4;
    return Currency::from_scaled(whole_of(scaled));
}

} // namespace tolvex
