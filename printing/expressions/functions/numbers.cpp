#include "core/errors.hpp"
#include "core/text.hpp"
#include "printing/expressions/arithmetic.hpp"
#include "printing/expressions/functions/table.hpp"

#include <charconv>
#include <cmath>
#include <random>

namespace tolvex::printing {

namespace {

// A function of the mathematical library.
template <double (*function)(double)>
Variant of_number(const Arguments& given)
{
    return finite(function(given.number(0)));
}

template <double (*function)(double, double)>
Variant of_numbers(const Arguments& given)
{
    return finite(function(given.number(0), given.number(1)));
}

// The number without decimals; amounts and whole numbers keep their kind.
template <double (*function)(double)>
Variant without_decimals(const Arguments& given)
{
    const Variant number = as_number(given[0]);
    if (number.get_if<std::int64_t>()) return number;
    const double whole = function(number.number());
    if (number.get_if<Currency>()) return Currency(whole);
    return whole;
}

// Round(number, digits, MidpointRounding): to the even neighbour unless told otherwise.
Variant round(const Arguments& given)
{
    const bool mode_second = given[1].get_if<Text>() != nullptr;
    const std::int64_t digits = mode_second ? 0 : given.whole(1, 0);
    if (digits < 0 || digits > 28) throw invalid_call();
    const bool away = equal_ignoring_case(given.text(mode_second ? 1 : 2), u"AwayFromZero");
    const Variant number = as_number(given[0]);
    if (number.get_if<std::int64_t>()) return number;
    const Decimal result =
        rounded(exact_decimal(number), static_cast<int>(digits), away ? Tie::away_from_zero : Tie::to_even);
    if (number.get_if<Currency>()) return currency_of(result);
    return to_double(result);
}

Variant absolute(const Arguments& given)
{
    const Variant number = as_number(given[0]);
    return compare_numbers(number, 0) < 0 ? negated(number) : number;
}

Variant sign(const Arguments& given) { return compare_numbers(given[0], 0); }

// Log(number, base)
Variant logarithm(const Arguments& given)
{
    const double natural = finite(std::log(given.number(0)));
    return given.has(1) ? finite(natural / std::log(given.number(1))) : natural;
}

Variant smaller(const Arguments& given)
{
    return as_number(given[compare_numbers(given[1], given[0]) < 0 ? 1 : 0]);
}

Variant larger(const Arguments& given)
{
    return as_number(given[compare_numbers(given[1], given[0]) > 0 ? 1 : 0]);
}

// From 0 to below 1.
Variant random(const Arguments&)
{
    static thread_local std::mt19937 numbers{std::random_device{}()};
    return std::uniform_real_distribution<>(0, 1)(numbers);
}

// Negative numbers as the two's complement of 32 bits or, where that is too small, of 64.
template <int base>
Variant digits_of_base(const Arguments& given)
{
    const std::int64_t whole = given.whole(0);
    const bool fits = whole >= std::numeric_limits<std::int32_t>::min() && whole < 0;
    const auto bits = fits ? static_cast<std::uint32_t>(whole) : static_cast<std::uint64_t>(whole);
    char digits[24];
    const char* end = std::to_chars(digits, std::end(digits), bits, base).ptr;
    return upper_case(to_text(std::string(static_cast<const char*>(digits), end)));
}

constexpr NamedFunction functions[] = {{u"round", 1, 3, round},
                                       {u"abs", 1, 1, absolute},
                                       {u"int", 1, 1, without_decimals<std::floor>},
                                       {u"fix", 1, 1, without_decimals<std::trunc>},
                                       {u"floor", 1, 1, without_decimals<std::floor>},
                                       {u"ceiling", 1, 1, without_decimals<std::ceil>},
                                       {u"truncate", 1, 1, without_decimals<std::trunc>},
                                       {u"sign", 1, 1, sign},
                                       {u"sgn", 1, 1, sign},
                                       {u"sqrt", 1, 1, of_number<std::sqrt>},
                                       {u"sqr", 1, 1, of_number<std::sqrt>},
                                       {u"exp", 1, 1, of_number<std::exp>},
                                       {u"log", 1, 2, logarithm},
                                       {u"log10", 1, 1, of_number<std::log10>},
                                       {u"pow", 2, 2, of_numbers<std::pow>},
                                       {u"sin", 1, 1, of_number<std::sin>},
                                       {u"cos", 1, 1, of_number<std::cos>},
                                       {u"tan", 1, 1, of_number<std::tan>},
                                       {u"asin", 1, 1, of_number<std::asin>},
                                       {u"acos", 1, 1, of_number<std::acos>},
                                       {u"atan", 1, 1, of_number<std::atan>},
                                       {u"atan2", 2, 2, of_numbers<std::atan2>},
                                       {u"sinh", 1, 1, of_number<std::sinh>},
                                       {u"cosh", 1, 1, of_number<std::cosh>},
                                       {u"tanh", 1, 1, of_number<std::tanh>},
                                       {u"math.min", 2, 2, smaller}, // Min and Max alone are aggregates
                                       {u"math.max", 2, 2, larger},
                                       {u"rnd", 0, 1, random},
                                       {u"hex", 1, 1, digits_of_base<16>},
                                       {u"oct", 1, 1, digits_of_base<8>}};

} // namespace

std::span<const NamedFunction> number_functions() { return functions; }

} // namespace tolvex::printing
