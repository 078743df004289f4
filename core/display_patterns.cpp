#include "core/display_patterns.hpp"

#include "core/dates.hpp"
#include "core/decimal_reader.hpp"
#include "core/errors.hpp"
#include "core/text.hpp"

#include <algorithm>
#include <limits>

namespace tolvex {

namespace {

// Of the largest number that there is.
constexpr int most_integer_digits = std::numeric_limits<double>::max_exponent10 + 1;

// A display pattern taken apart.
struct Pattern
{
    std::size_t least_integer_digits = 0;
    int decimals = 0;
    bool grouped = false;
    bool literal = false;
};

Pattern parse_pattern(TextView pattern)
{
    const auto point = std::min(pattern.find(u'.'), pattern.size());
    const TextView integer = pattern.substr(0, point);
    const TextView fraction = pattern.substr(std::min(point + 1, pattern.size()));
    Pattern parsed;
    parsed.least_integer_digits = std::count(integer.begin(), integer.end(), u'0');
    parsed.decimals = static_cast<int>(std::count(fraction.begin(), fraction.end(), u'0'));
    parsed.grouped = integer.find(u',') != TextView::npos;
    parsed.literal = pattern.find_first_of(u"0#") == TextView::npos;
    return parsed;
}

void group_thousands(std::string& digits)
{
    for (int i = static_cast<int>(digits.size()) - 3; i > 0; i -= 3) digits.insert(i, 1, ',');
}

Text format(const Decimal& exact, TextView pattern_text)
{
    const Pattern pattern = parse_pattern(pattern_text);
    if (pattern.literal) return Text(pattern_text);
    const Decimal number = rounded(exact, pattern.decimals, Tie::away_from_zero);
    std::string integer = integer_digits(number);
    if (integer.size() < pattern.least_integer_digits)
        integer.insert(0, pattern.least_integer_digits - integer.size(), '0');
    if (pattern.grouped) group_thousands(integer);
    std::string fraction = fraction_digits(number);
    fraction.resize(pattern.decimals, '0');
    return to_text((number.negative ? "-" : "") + integer + (pattern.decimals ? "." + fraction : ""));
}

Text padded(int number, std::size_t width)
{
    const std::string digits = std::to_string(number);
    return Text(width > digits.size() ? width - digits.size() : 0, u'0') + to_text(digits);
}

std::size_t run_length(TextView text)
{
    return std::min(text.find_first_not_of(text.substr(0, 1)), text.size());
}

bool is_hour_or_separator(char16_t c) { return c == u'h' || c == u':'; }

} // namespace

Text format(double number, TextView pattern) { return format(decimal_of(number), pattern); }

Text format(Currency amount, TextView pattern) { return format(decimal_of(amount), pattern); }

Text format(TextView text, TextView pattern)
{
    try {
        const Decimal number = decimal_of(text);
        return number.point > most_integer_digits ? Text(text) : format(number, pattern);
    } catch (const Error&) {
        return Text(text);
    }
}

Text format(Date date, TextView pattern)
{
    const CalendarDate at = calendar(date);
    const Text lower = lower_case(pattern);
    Text result;
    char16_t before = u'\0'; // last field or separator seen, which tells minutes from months
    for (std::size_t i = 0; i < lower.size();) {
        const char16_t field = lower[i];
        const std::size_t width = run_length(TextView(lower).substr(i));
        if (field == u'y')
            result += padded(at.year, width);
        else if (field == u'm')
            result += padded(is_hour_or_separator(before) ? at.minute : at.month, width);
        else if (field == u'd')
            result += padded(at.day, width);
        else if (field == u'h')
            result += padded(at.hour, width);
        else if (field == u's')
            result += padded(at.second, width);
        else
            result += pattern.substr(i, width);
        before = field;
        i += width;
    }
    return result;
}

} // namespace tolvex
