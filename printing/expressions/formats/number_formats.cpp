#include "printing/expressions/formats/number_formats.hpp"

#include "core/errors.hpp"
#include "core/text.hpp"
#include "printing/expressions/arithmetic.hpp"
#include "printing/expressions/names.hpp"

#include <algorithm>
#include <charconv>
#include <optional>

namespace tolvex::printing {

namespace {

constexpr int most_decimals = 99;
constexpr int double_digits = 15;

// "N2" is the letter N with precision 2.
struct StandardFormat
{
    char16_t letter;
    std::optional<int> precision;
};

Error unknown_format(TextView format) { return invalid_call(u"Formato desconocido: " + Text(format)); }

std::optional<StandardFormat> standard_format(TextView format)
{
    const char16_t letter = format.front() | 0x20;
    if (letter < u'a' || letter > u'z') return std::nullopt;
    int precision = 0;
    for (const char16_t c : format.substr(1)) {
        if (!is_digit(c)) return std::nullopt;
        precision = precision * 10 + (c - u'0');
        if (precision > most_decimals) throw unknown_format(format);
    }
    if (format.size() == 1) return StandardFormat{format.front(), std::nullopt};
    return StandardFormat{format.front(), precision};
}

// The names that Visual Basic has for common formats.
TextView format_of_name(TextView name)
{
    static constexpr std::pair<TextView, TextView> names[] = {
        {u"General Number", u"G"}, {u"Currency", u"C"}, {u"Fixed", u"F2"},
        {u"Standard", u"N2"},      {u"Percent", u"P2"}, {u"Scientific", u"E2"}};
    const TextView* format = find_name(names, name);
    return format ? *format : name;
}

Decimal without_sign(Decimal number)
{
    number.negative = false;
    return number;
}

Text grouped(const std::string& digits, TextView separator)
{
    Text result;
    for (std::size_t i = 0; i < digits.size(); ++i) {
        if (i > 0 && (digits.size() - i) % 3 == 0) result += separator;
        result += static_cast<char16_t>(digits[i]);
    }
    return result;
}

// Digits and point of a number that is rounded already.
Text digits_of(const Decimal& number, const NumberStyle& style, const Culture& culture)
{
    std::string integer = integer_digits(number);
    if (integer.empty() && (style.leading_zero || style.decimals == 0)) integer = "0";
    std::string fraction = fraction_digits(number);
    fraction.resize(style.decimals, '0');
    Text result = style.grouped ? grouped(integer, culture.group_separator) : to_text(integer);
    return fraction.empty() ? result : result + culture.decimal_point + to_text(fraction);
}

Text signed_text(bool negative, const NumberStyle& style, const Text& text)
{
    if (!negative) return text;
    return style.negative_in_parentheses ? u"(" + text + u")" : u"-" + text;
}

Text exponent(int value, TextView mark, std::size_t least_digits)
{
    const std::string digits = std::to_string(std::abs(value));
    const Text zeros(least_digits > digits.size() ? least_digits - digits.size() : 0, u'0');
    return Text(mark) + (value < 0 ? u"-" : u"+") + zeros + to_text(digits);
}

// d.ddd with an exponent; `decimals` none: as many as there are.
Text scientific(const Decimal& number, std::optional<int> decimals, TextView mark,
                std::size_t exponent_digits, const Culture& culture)
{
    Decimal mantissa = number;
    if (!mantissa.is_zero()) mantissa.point = 1;
    if (decimals) mantissa = rounded(mantissa, *decimals, Tie::away_from_zero);
    const int shifted = mantissa.point - 1; // 9.99 becomes 10.0
    const int power = number.is_zero() ? 0 : number.point - 1 + shifted;
    if (!mantissa.is_zero()) mantissa.point = 1;
    const int shown = decimals ? *decimals : static_cast<int>(fraction_digits(mantissa).size());
    const Text digits = digits_of(without_sign(mantissa), {.decimals = shown, .grouped = false}, culture);
    return (number.negative ? u"-" : u"") + digits + exponent(power, mark, exponent_digits);
}

// As short as it can be; floating numbers far from 1 with an exponent.
Text general(const Variant& value, const StandardFormat& format, const Culture& culture)
{
    Decimal number = exact_decimal(value);
    const bool floating = value.get_if<double>() != nullptr;
    const int precision = format.precision.value_or(0) > 0 ? *format.precision : 0;
    if (precision > 0) number = rounded(number, precision - number.point, Tie::away_from_zero);
    const int longest = precision > 0 ? precision : double_digits;
    if ((floating || precision > 0) && (number.point > longest || number.point < -3))
        return scientific(number, std::nullopt, format.letter == u'g' ? u"e" : u"E", 2, culture);
    const int decimals = static_cast<int>(fraction_digits(number).size());
    return signed_text(number.negative, {},
                       digits_of(number, {.decimals = decimals, .grouped = false}, culture));
}

Text whole_digits(const Variant& value, int least_digits)
{
    const std::int64_t whole = value.whole_number();
    const Text digits = to_text(std::to_string(whole)).substr(whole < 0 ? 1 : 0);
    const std::size_t zeros = std::max(0, least_digits - static_cast<int>(digits.size()));
    return (whole < 0 ? u"-" : u"") + Text(zeros, u'0') + digits;
}

Text hexadecimal(const Variant& value, const StandardFormat& format)
{
    char digits[20];
    const auto whole = static_cast<std::uint64_t>(value.whole_number());
    const char* end = std::to_chars(digits, std::end(digits), whole, 16).ptr;
    Text text = to_text(std::string(static_cast<const char*>(digits), end));
    text.insert(0, std::max(0, format.precision.value_or(0) - static_cast<int>(text.size())), u'0');
    return format.letter == u'X' ? upper_case(text) : text;
}

Text format_by_letter(const Variant& value, const StandardFormat& format, TextView source,
                      const Culture& culture)
{
    const int decimals = format.precision.value_or(2);
    switch (format.letter | 0x20) {
    case u'c':
        return amount_with_symbol(
            exact_decimal(value),
            {.decimals = decimals, .negative_in_parentheses = culture.negative_in_parentheses}, culture);
    case u'd':
        return whole_digits(value, format.precision.value_or(0));
    case u'e':
        return scientific(exact_decimal(value), format.precision.value_or(6),
                          format.letter == u'e' ? u"e" : u"E", 3, culture);
    case u'f':
        return plain_number(exact_decimal(value), {.decimals = decimals, .grouped = false}, culture);
    case u'g':
    case u'r':
        return general(value, format, culture);
    case u'n':
        return plain_number(exact_decimal(value), {.decimals = decimals}, culture);
    case u'p':
        return percentage(exact_decimal(value), {.decimals = decimals}, culture);
    case u'x':
        return hexadecimal(value, format);
    default:
        throw unknown_format(source);
    }
}

} // namespace

Text format_number(const Variant& number, TextView format, const Culture& culture)
{
    const TextView pattern = format_of_name(format);
    if (pattern.empty()) return general(number, {u'G', std::nullopt}, culture);
    if (const auto standard = standard_format(pattern))
        return format_by_letter(number, *standard, format, culture);
    return format_number_by_pattern(exact_decimal(number), pattern, culture);
}

Text plain_number(Decimal number, const NumberStyle& style, const Culture& culture)
{
    number = rounded(number, style.decimals, Tie::away_from_zero);
    return signed_text(number.negative, style, digits_of(number, style, culture));
}

Text amount_with_symbol(Decimal number, const NumberStyle& style, const Culture& culture)
{
    number = rounded(number, style.decimals, Tie::away_from_zero);
    const Text digits = digits_of(number, style, culture);
    const Text gap = culture.symbol_apart ? u" " : u"";
    const Text amount = culture.symbol_first ? culture.currency_symbol + gap + digits
                                             : digits + gap + culture.currency_symbol;
    return signed_text(number.negative, style, amount);
}

Text percentage(Decimal number, const NumberStyle& style, const Culture& culture)
{
    if (!number.is_zero()) number.point += 2;
    number = rounded(number, style.decimals, Tie::away_from_zero);
    const Text digits = digits_of(number, style, culture);
    return signed_text(number.negative, style, digits + (culture.percent_apart ? u" %" : u"%"));
}

} // namespace tolvex::printing
