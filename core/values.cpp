#include "core/values.hpp"

#include "core/errors.hpp"

#include <algorithm>
#include <charconv>
#include <chrono>
#include <cmath>
#include <limits>
#include <optional>

namespace tolvex {

namespace {

// A number as its decimal digits: 0.DIGITS times 10 to the power of point. Zero has no digits.
struct Decimal
{
    bool negative = false;
    std::string digits;
    int point = 0;

    bool is_zero() const { return digits.empty(); }
};

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

enum class Tie
{
    away_from_zero,
    to_even
};

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

Text shortest(const Decimal& number)
{
    std::string integer = integer_digits(number);
    if (integer.empty()) integer = "0";
    const std::string fraction = fraction_digits(number);
    return to_text((number.negative ? "-" : "") + integer + (fraction.empty() ? "" : "." + fraction));
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

// Throws Error 6 unless the number, which has no digits after its point, fits 64 bits.
std::int64_t to_int64(const Decimal& number)
{
    const std::string digits =
        (number.negative ? "-" : "") + (number.is_zero() ? "0" : integer_digits(number));
    std::int64_t value = 0;
    if (std::from_chars(digits.data(), digits.data() + digits.size(), value).ec != std::errc())
        throw overflow();
    return value;
}

Currency currency_of(Decimal number)
{
    number = rounded(number, 4, Tie::to_even);
    if (!number.is_zero()) number.point += 4;
    return Currency::from_scaled(to_int64(number));
}

bool is_digit(char16_t c) { return c >= u'0' && c <= u'9'; }

// Reads a text from its start, a piece at a time.
class Reader
{
public:
    explicit Reader(TextView rest) : rest_(rest) {}

    bool at_end() const { return rest_.empty(); }
    char16_t peek() const { return rest_.empty() ? u'\0' : rest_.front(); }

    bool take(TextView any_of)
    {
        if (rest_.empty() || any_of.find(rest_.front()) == TextView::npos) return false;
        rest_.remove_prefix(1);
        return true;
    }

    std::string take_digits()
    {
        std::string digits;
        for (; is_digit(peek()); rest_.remove_prefix(1)) digits += static_cast<char>(rest_.front());
        return digits;
    }

private:
    TextView rest_;
};

constexpr int largest_exponent = 100'000;

int to_exponent(const std::string& digits, bool negative)
{
    int exponent = 0;
    if (digits.empty()) return 0; // "12 de marzo" has an exponent's letter but no exponent
    if (std::from_chars(digits.data(), digits.data() + digits.size(), exponent).ec != std::errc())
        exponent = largest_exponent;
    return negative ? -std::min(exponent, largest_exponent) : std::min(exponent, largest_exponent);
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

Decimal decimal_of(TextView text)
{
    const Text trimmed = trim(text);
    Reader reader(trimmed);
    const bool negative = reader.peek() == u'-';
    reader.take(u"+-");
    const auto integer = take_grouped_digits(reader);
    const std::string fraction = reader.take(u".") ? reader.take_digits() : std::string();
    if (!integer || (integer->empty() && fraction.empty())) throw type_mismatch();

    int exponent = 0;
    if (reader.take(u"eE")) {
        const bool below_one = reader.peek() == u'-';
        reader.take(u"+-");
        const std::string digits = reader.take_digits();
        if (digits.empty()) throw type_mismatch();
        exponent = to_exponent(digits, below_one);
    }
    if (!reader.at_end()) throw type_mismatch();
    return normalized({negative, *integer + fraction, static_cast<int>(integer->size()) + exponent});
}

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

template <class Integer>
Integer to_integer(double number)
{
    if (!std::isfinite(number)) throw overflow();
    const double nearest = std::nearbyint(number); // ties to even, the default rounding mode
    if (nearest < std::numeric_limits<Integer>::min() || nearest > std::numeric_limits<Integer>::max())
        throw overflow();
    return static_cast<Integer>(nearest);
}

using std::chrono::sys_days;
constexpr sys_days epoch{std::chrono::year{1899} / 12 / 30};
constexpr int seconds_a_day = 86'400;

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

// Part of a date text: one number of up to four digits. Throws Error 13 when there is none.
int take_number(Reader& reader, std::size_t& width)
{
    const std::string digits = reader.take_digits();
    if (digits.empty() || digits.size() > 4) throw type_mismatch();
    width = digits.size();
    return std::stoi(digits);
}

int take_number(Reader& reader)
{
    std::size_t width = 0;
    return take_number(reader, width);
}

void expect(Reader& reader, TextView any_of)
{
    if (!reader.take(any_of)) throw type_mismatch();
}

} // namespace

Currency::Currency(double units) : Currency(currency_of(decimal_of(units))) {}

Text amount_as_text(Currency amount) { return shortest(decimal_of(amount)); }

Text number_as_text(double number) { return shortest(decimal_of(number)); }

Text decimal(std::int64_t number) { return to_text(std::to_string(number)); }

Text format(double number, TextView pattern) { return format(decimal_of(number), pattern); }

Text format(Currency amount, TextView pattern) { return format(decimal_of(amount), pattern); }

Text format(TextView text, TextView pattern)
{
    try {
        return format(decimal_of(text), pattern);
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

double to_number(TextView text) { return to_double(decimal_of(text)); }

Currency to_currency(TextView text) { return currency_of(decimal_of(text)); }

double leading_number(TextView text)
{
    const Text compact = replace_all(replace_all(without(text, u' '), u"\t", u""), u"\n", u"");
    Reader reader(compact);
    const bool negative = reader.peek() == u'-';
    reader.take(u"+-");
    const std::string integer = reader.take_digits();
    const std::string fraction = reader.take(u".") ? reader.take_digits() : std::string();
    int exponent = 0;
    if (!(integer + fraction).empty() && reader.take(u"eEdD")) {
        const bool below_one = reader.peek() == u'-';
        reader.take(u"+-");
        exponent = to_exponent(reader.take_digits(), below_one);
    }
    return to_double(normalized({negative, integer + fraction, static_cast<int>(integer.size()) + exponent}));
}

std::int16_t to_int16(double number) { return to_integer<std::int16_t>(number); }

std::int32_t to_int32(double number) { return to_integer<std::int32_t>(number); }

double round_half_even(double number, int decimals)
{
    return to_double(rounded(decimal_of(number), decimals, Tie::to_even));
}

CalendarDate calendar(Date date)
{
    constexpr double first_day = -657'434, last_day = 2'958'465;
    if (!(date.days > first_day - 1 && date.days < last_day + 1)) throw overflow();
    // Before 1899-12-30 the fraction still counts forward from midnight.
    double whole = std::trunc(date.days);
    int seconds = static_cast<int>(std::lround(std::abs(date.days - whole) * seconds_a_day));
    if (seconds == seconds_a_day) {
        seconds = 0;
        ++whole;
    }
    if (whole > last_day) throw overflow();
    const std::chrono::year_month_day day(epoch + std::chrono::days(static_cast<int>(whole)));
    return {static_cast<int>(day.year()),
            static_cast<int>(static_cast<unsigned>(day.month())),
            static_cast<int>(static_cast<unsigned>(day.day())),
            seconds / 3600,
            seconds / 60 % 60,
            seconds % 60};
}

int year_of(Date date) { return calendar(date).year; }

Date Date::of(int year, int month, int day, int hour, int minute, int second)
{
    const auto require = [](bool exists) {
        if (!exists) throw type_mismatch();
    };
    // Calendar fields hold a byte: what does not fit one is refused before it is folded into a good month or
    // day.
    require(year >= 100 && year <= 9999 && month >= 1 && month <= 12 && day >= 1 && day <= 31);
    require(hour >= 0 && hour < 24 && minute >= 0 && minute < 60 && second >= 0 && second < 60);
    const std::chrono::year_month_day date{std::chrono::year{year},
                                           std::chrono::month(static_cast<unsigned>(month)),
                                           std::chrono::day(static_cast<unsigned>(day))};
    require(date.ok());
    const int days = (sys_days(date) - epoch).count();
    const double time = (hour * 3600 + minute * 60 + second) / double{seconds_a_day};
    return {days < 0 ? days - time : days + time};
}

Date to_date(TextView text)
{
    const Text trimmed = trim(text);
    Reader reader(trimmed);
    std::size_t width = 0;
    int year = take_number(reader, width);
    const bool day_first = width < 3; // 22-10-2010, as Mexican users write it
    expect(reader, u"-/");
    const int month = take_number(reader);
    expect(reader, u"-/");
    int day = take_number(reader);
    if (day_first) std::swap(year, day);

    int hour = 0, minute = 0, second = 0;
    if (reader.take(u"T ")) {
        hour = take_number(reader);
        expect(reader, u":");
        minute = take_number(reader);
        if (reader.take(u":")) second = take_number(reader);
        if (reader.take(u".")) reader.take_digits();
    }
    if (!reader.at_end()) throw type_mismatch();
    return Date::of(year, month, day, hour, minute, second);
}

} // namespace tolvex
