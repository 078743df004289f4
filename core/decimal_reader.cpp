#include "core/decimal_reader.hpp"

#include "core/errors.hpp"
#include "core/reader.hpp"

#include <algorithm>
#include <charconv>
#include <optional>

namespace tolvex {

namespace {

// Whether the sign is a minus; there may be none.
bool take_minus(Reader& reader)
{
    if (reader.take(u"-")) return true;
    reader.take(u"+");
    return false;
}

// Digits with "," between groups of three; nothing when a group is broken.
std::optional<std::string> take_grouped_digits(Reader& reader)
{
    std::string digits = reader.take_digits();
    if (reader.peek() != u',') return digits;
    if (digits.empty() || digits.size() > 3) return std::nullopt;
    while (reader.take(u",")) {
        const std::string group = reader.take_digits();
        if (group.size() != 3) return std::nullopt;
        digits += group;
    }
    return digits;
}

std::string take_fraction(Reader& reader) { return reader.take(u".") ? reader.take_digits() : std::string(); }

// What follows an exponent's letter; nothing when there are no digits.
std::optional<int> take_exponent(Reader& reader)
{
    constexpr int largest = 100'000;
    const bool negative = take_minus(reader);
    const std::string digits = reader.take_digits();
    if (digits.empty()) return std::nullopt;
    int exponent = 0;
    if (std::from_chars(digits.data(), digits.data() + digits.size(), exponent).ec != std::errc())
        exponent = largest;
    exponent = std::min(exponent, largest);
    return negative ? -exponent : exponent;
}

// One "," with three digits after it may stand between thousands or before decimals.
bool may_be_a_decimal_comma(TextView text)
{
    return std::count(text.begin(), text.end(), u',') == 1 && text.find(u'.') == TextView::npos;
}

Error ambiguous(const Text& text)
{
    return with_detail(type_mismatch(),
                       u"«" + text + u"» puede llevar miles o decimales; escriba los decimales con punto");
}

Decimal assembled(bool negative, const std::string& integer, const std::string& fraction, int exponent)
{
    return normalized({negative, integer + fraction, static_cast<int>(integer.size()) + exponent});
}

} // namespace

Decimal decimal_of(TextView text)
{
    const Text trimmed = trim(text);
    Reader reader(trimmed);
    const bool negative = take_minus(reader);
    const auto integer = take_grouped_digits(reader);
    const std::string fraction = take_fraction(reader);
    if (!integer || (integer->empty() && fraction.empty())) throw type_mismatch();
    std::optional<int> exponent = 0;
    if (reader.take(u"eE")) exponent = take_exponent(reader);
    if (!exponent || !reader.at_end()) throw type_mismatch();
    if (may_be_a_decimal_comma(trimmed)) throw ambiguous(trimmed);
    return assembled(negative, *integer, fraction, *exponent);
}

Decimal leading_decimal(TextView text)
{
    const Text compact = without(without(without(text, u' '), u'\t'), u'\n');
    Reader reader(compact);
    const bool negative = take_minus(reader);
    const std::string integer = reader.take_digits();
    const std::string fraction = take_fraction(reader);
    int exponent = 0;
    if (!(integer + fraction).empty() && reader.take(u"eEdD"))
        exponent = take_exponent(reader).value_or(0); // "12 de marzo" has an exponent's letter only
    return assembled(negative, integer, fraction, exponent);
}

} // namespace tolvex
