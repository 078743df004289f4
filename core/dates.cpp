#include "core/dates.hpp"

#include "core/errors.hpp"
#include "core/reader.hpp"

#include <chrono>
#include <cmath>

namespace tolvex {

namespace {

using std::chrono::sys_days;
constexpr sys_days epoch{std::chrono::year{1899} / 12 / 30};
constexpr int seconds_a_day = 86'400;

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
