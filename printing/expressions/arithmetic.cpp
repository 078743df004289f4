#include "printing/expressions/arithmetic.hpp"

#include "core/decimal_reader.hpp"
#include "core/errors.hpp"
#include "core/numbers.hpp"

#include <charconv>
#include <cmath>

namespace tolvex::printing {

namespace {

bool is_exact(const Variant& number) { return !number.get_if<double>(); }

bool both_whole(const Variant& a, const Variant& b)
{
    return a.get_if<std::int64_t>() && b.get_if<std::int64_t>();
}

std::int64_t times(std::int64_t a, std::int64_t b)
{
    std::int64_t result = 0;
    if (__builtin_mul_overflow(a, b, &result)) throw overflow();
    return result;
}

std::int64_t plus(std::int64_t a, std::int64_t b)
{
    std::int64_t result = 0;
    if (__builtin_add_overflow(a, b, &result)) throw overflow();
    return result;
}

std::int64_t minus(std::int64_t a, std::int64_t b)
{
    std::int64_t result = 0;
    if (__builtin_sub_overflow(a, b, &result)) throw overflow();
    return result;
}

// Ten-thousandths of a whole number or an amount.
std::int64_t scaled(const Variant& exact)
{
    if (const Currency* amount = exact.get_if<Currency>()) return amount->scaled();
    return times(*exact.get_if<std::int64_t>(), 10'000);
}

// A sum or difference of two numbers.
template <class Whole, class Floating>
Variant combined(const Variant& left, const Variant& right, Whole whole, Floating floating)
{
    const Variant a = as_number(left), b = as_number(right);
    if (both_whole(a, b)) return whole(*a.get_if<std::int64_t>(), *b.get_if<std::int64_t>());
    if (is_exact(a) && is_exact(b)) return Currency::from_scaled(whole(scaled(a), scaled(b)));
    return finite(floating(a.number(), b.number()));
}

Error division_by_zero() { return {11, u"División entre cero"}; }

// What a text holds as a number; the peso sign may stand before it.
Decimal decimal_in(TextView text)
{
    Text bare = trim(text);
    const auto sign = bare.find(u'$');
    if (sign == 0 || (sign == 1 && bare.front() == u'-')) bare.erase(sign, 1);
    return decimal_of(bare);
}

} // namespace

bool is_number(const Variant& value)
{
    return value.get_if<std::int64_t>() || value.get_if<double>() || value.get_if<Currency>();
}

Variant as_number(const Variant& value)
{
    if (is_number(value)) return value;
    if (value.is_nothing()) return 0;
    if (const bool* truth = value.get_if<bool>()) return *truth ? -1 : 0;
    return value.number();
}

Variant sum(const Variant& left, const Variant& right) { return combined(left, right, plus, std::plus<>()); }

Variant difference(const Variant& left, const Variant& right)
{
    return combined(left, right, minus, std::minus<>());
}

Variant product(const Variant& left, const Variant& right)
{
    const Variant a = as_number(left), b = as_number(right);
    if (both_whole(a, b)) return times(*a.get_if<std::int64_t>(), *b.get_if<std::int64_t>());
    const Currency* amount = a.get_if<Currency>() ? a.get_if<Currency>() : b.get_if<Currency>();
    const auto* count = a.get_if<Currency>() ? b.get_if<std::int64_t>() : a.get_if<std::int64_t>();
    if (amount && count) return Currency::from_scaled(times(amount->scaled(), *count));
    return finite(a.number() * b.number());
}

double quotient(const Variant& left, const Variant& right)
{
    const double divisor = right.number(), dividend = left.number();
    if (divisor == 0) throw division_by_zero();
    return finite(dividend / divisor);
}

std::int64_t whole_quotient(const Variant& left, const Variant& right)
{
    const std::int64_t divisor = right.whole_number(), dividend = left.whole_number();
    if (divisor == 0) throw division_by_zero();
    return divisor == -1 ? minus(0, dividend) : dividend / divisor;
}

Variant remainder(const Variant& left, const Variant& right)
{
    const Variant a = as_number(left), b = as_number(right);
    if (b.number() == 0) throw division_by_zero();
    if (!both_whole(a, b)) return finite(std::fmod(a.number(), b.number()));
    const std::int64_t divisor = *b.get_if<std::int64_t>();
    return divisor == -1 ? 0 : *a.get_if<std::int64_t>() % divisor;
}

double power(const Variant& left, const Variant& right)
{
    return finite(std::pow(left.number(), right.number()));
}

Variant negated(const Variant& value) { return difference(0, value); }

int compare_numbers(const Variant& left, const Variant& right)
{
    const Variant a = as_number(left), b = as_number(right);
    if (both_whole(a, b)) return sign_of_difference(*a.get_if<std::int64_t>(), *b.get_if<std::int64_t>());
    if (a.get_if<Currency>() && b.get_if<Currency>()) return sign_of_difference(scaled(a), scaled(b));
    return sign_of_difference(a.number(), b.number());
}

Decimal exact_decimal(const Variant& value)
{
    if (const Currency* amount = value.get_if<Currency>()) return decimal_of(*amount);
    if (const std::int64_t* whole = value.get_if<std::int64_t>()) return decimal_of(decimal(*whole));
    if (const Text* text = value.get_if<Text>()) return decimal_in(*text);
    if (value.get_if<Bytes>() || value.get_if<Variant::List>()) throw type_mismatch();
    return decimal_of(value.number());
}

Variant amount_or_number(const Decimal& number)
{
    const bool four_decimals = static_cast<int>(number.digits.size()) - number.point <= 4;
    const bool in_range = number.point < 15 || (number.point == 15 && number.digits <= "9223372036854775807");
    if (four_decimals && in_range) return currency_of(number);
    return to_double(number);
}

std::int64_t nearest_whole(double number)
{
    constexpr double limit = 9'223'372'036'854'775'808.0;
    const double whole = std::nearbyint(number); // ties to even, the default rounding mode
    if (!(whole >= -limit && whole < limit)) throw overflow();
    return static_cast<std::int64_t>(whole);
}

std::int64_t whole_of(const Decimal& number)
{
    if (number.is_zero()) return 0;
    if (number.point > 19) throw overflow();
    const std::string digits =
        (number.negative ? "-" : "") + (number.point > 0 ? integer_digits(number) : "0");
    std::int64_t value = 0;
    if (std::from_chars(digits.data(), digits.data() + digits.size(), value).ec != std::errc())
        throw overflow();
    return value;
}

double finite(double number)
{
    if (std::isnan(number)) throw invalid_call();
    if (std::isinf(number)) throw overflow();
    return number;
}

} // namespace tolvex::printing
