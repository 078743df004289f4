#include "printing/expressions/moments.hpp"

#include "core/errors.hpp"

#include <algorithm>
#include <chrono>
#include <cmath>

namespace tolvex::printing {

namespace {

constexpr std::int64_t first_day = -657'434, last_day = 2'958'465;

std::int64_t floor_quotient(std::int64_t a, std::int64_t b) { return a / b - (a % b < 0 ? 1 : 0); }

Date date_of_day(std::int64_t day, std::int64_t milliseconds)
{
    if (day < first_day || day > last_day) throw overflow();
    const double time = static_cast<double>(milliseconds) / milliseconds_a_day;
    // Before 1899-12-30 the fraction still counts forward from midnight.
    return {day < 0 ? static_cast<double>(day) - time : static_cast<double>(day) + time};
}

} // namespace

std::int64_t milliseconds_of(Date date)
{
    if (!(date.days > first_day - 1 && date.days < last_day + 1)) throw overflow();
    const double day = std::trunc(date.days);
    return static_cast<std::int64_t>(day) * milliseconds_a_day +
           std::llround(std::abs(date.days - day) * milliseconds_a_day);
}

Date date_of_milliseconds(std::int64_t milliseconds)
{
    const std::int64_t day = floor_quotient(milliseconds, milliseconds_a_day);
    return date_of_day(day, milliseconds - day * milliseconds_a_day);
}

Moment moment_of(Date date)
{
    const std::int64_t whole = milliseconds_of(date);
    const std::int64_t day = floor_quotient(whole, milliseconds_a_day);
    CalendarDate at = calendar(Date{static_cast<double>(day)});
    const int rest = static_cast<int>(whole - day * milliseconds_a_day);
    at.hour = rest / 3'600'000;
    at.minute = rest / 60'000 % 60;
    at.second = rest / 1000 % 60;
    const std::int64_t year_begins = milliseconds_of(first_of_month(at.year, 1)) / milliseconds_a_day;
    return {at, rest % 1000, static_cast<int>((day + 6 - first_day / 7 * 7) % 7),
            static_cast<int>(day - year_begins) + 1};
}

Date plus_milliseconds(Date date, double milliseconds)
{
    constexpr double longest = 1e15; // far beyond the calendar
    if (!(std::abs(milliseconds) < longest)) throw overflow();
    return date_of_milliseconds(milliseconds_of(date) + std::llround(milliseconds));
}

Date plus_months(Date date, std::int64_t months)
{
    constexpr std::int64_t longest = 120'000;
    if (months > longest || months < -longest) throw overflow();
    const Moment from = moment_of(date);
    const Date month = first_of_month(from.at.year, from.at.month + months);
    const CalendarDate to = calendar(month);
    const int day = std::min(from.at.day, days_in_month(to.year, to.month));
    const std::int64_t time = milliseconds_of(time_of_day(date));
    return date_of_milliseconds(milliseconds_of(month) + std::int64_t{day - 1} * milliseconds_a_day + time);
}

Date first_of_month(std::int64_t year, std::int64_t month)
{
    constexpr std::int64_t farthest = 1'000'000;
    if (std::max(year, month) > farthest || std::min(year, month) < -farthest) throw overflow();
    year += floor_quotient(month - 1, 12);
    month -= floor_quotient(month - 1, 12) * 12;
    if (year < 100 || year > 9999) throw overflow();
    return Date::of(static_cast<int>(year), static_cast<int>(month), 1);
}

int days_in_month(int year, int month)
{
    using namespace std::chrono;
    const auto last =
        std::chrono::year(year) / std::chrono::month(static_cast<unsigned>(month)) / std::chrono::last;
    return static_cast<int>(static_cast<unsigned>(last.day()));
}

bool is_leap_year(std::int64_t year) { return year % 4 == 0 && (year % 100 != 0 || year % 400 == 0); }

Date midnight(Date date) { return date_of_day(floor_quotient(milliseconds_of(date), milliseconds_a_day), 0); }

Date time_of_day(Date date)
{
    const std::int64_t whole = milliseconds_of(date);
    return date_of_milliseconds(whole - floor_quotient(whole, milliseconds_a_day) * milliseconds_a_day);
}

std::int64_t full_year(std::int64_t year)
{
    if (year < 0 || year > 99) return year;
    return year < 30 ? year + 2000 : year + 1900;
}

} // namespace tolvex::printing
