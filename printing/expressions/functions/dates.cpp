#include "core/errors.hpp"
#include "printing/expressions/expression.hpp"
#include "printing/expressions/functions/table.hpp"
#include "printing/expressions/moments.hpp"
#include "printing/expressions/names.hpp"

#include <cmath>

namespace tolvex::printing {

namespace {

enum class Interval
{
    year,
    quarter,
    month,
    day_of_year,
    day,
    weekday,
    week,
    hour,
    minute,
    second
};

Interval interval_in(const Arguments& given)
{
    static constexpr std::pair<TextView, Interval> intervals[] = {
        {u"yyyy", Interval::year},     {u"q", Interval::quarter}, {u"m", Interval::month},
        {u"y", Interval::day_of_year}, {u"d", Interval::day},     {u"w", Interval::weekday},
        {u"ww", Interval::week},       {u"h", Interval::hour},    {u"n", Interval::minute},
        {u"s", Interval::second}};
    const Text wanted = given.text(0);
    if (const Interval* interval = find_name(intervals, wanted)) return *interval;
    throw invalid_call(u"Intervalo desconocido: " + clip(wanted, 40));
}

std::int64_t milliseconds_in(Interval interval)
{
    switch (interval) {
    case Interval::week:
        return 7 * milliseconds_a_day;
    case Interval::hour:
        return 3'600'000;
    case Interval::minute:
        return 60'000;
    case Interval::second:
        return 1000;
    default:
        return milliseconds_a_day;
    }
}

std::int64_t months_in(Interval interval)
{
    return interval == Interval::year ? 12 : (interval == Interval::quarter ? 3 : 1);
}

bool is_of_months(Interval interval)
{
    return interval == Interval::year || interval == Interval::quarter || interval == Interval::month;
}

// A whole number of units, as far as any calendar reaches.
std::int64_t count_of(double number)
{
    constexpr double farthest = 1e12;
    if (!(std::abs(number) < farthest)) throw overflow();
    return static_cast<std::int64_t>(number);
}

Variant date_add(const Arguments& given)
{
    const Interval interval = interval_in(given);
    const std::int64_t count = count_of(given.number(1));
    if (is_of_months(interval)) return plus_months(given.date(2), count * months_in(interval));
    if (interval == Interval::weekday)
        return plus_milliseconds(given.date(2), static_cast<double>(count) * milliseconds_a_day);
    return plus_milliseconds(given.date(2),
                             static_cast<double>(count) * static_cast<double>(milliseconds_in(interval)));
}

int first_day_of_week(const Arguments& given, std::size_t i)
{
    const std::int64_t day = given.whole(i, 1);
    if (day < 0 || day > 7) throw invalid_call();
    return day == 0 ? 1 : static_cast<int>(day);
}

// 1 for the first day of the week, which is a Sunday where none is told.
int weekday_of(const Moment& moment, int first_day)
{
    return (moment.day_of_week - (first_day - 1) + 7) % 7 + 1;
}

std::int64_t week_of(Date date, int first_day)
{
    return milliseconds_of(midnight(date)) -
           (weekday_of(moment_of(date), first_day) - 1) * milliseconds_a_day;
}

std::int64_t quarter_of(const Moment& moment) { return (moment.at.month - 1) / 3 + 1; }

// Months, quarters and years by the calendar, shorter ones by the time that has passed.
Variant date_diff(const Arguments& given)
{
    const Interval interval = interval_in(given);
    const Date from = given.date(1), to = given.date(2);
    const Moment a = moment_of(from), b = moment_of(to);
    const std::int64_t years = b.at.year - a.at.year;
    switch (interval) {
    case Interval::year:
        return years;
    case Interval::quarter:
        return years * 4 + quarter_of(b) - quarter_of(a);
    case Interval::month:
        return years * 12 + b.at.month - a.at.month;
    case Interval::week: {
        const int first_day = first_day_of_week(given, 3);
        return (week_of(to, first_day) - week_of(from, first_day)) / milliseconds_in(interval);
    }
    case Interval::weekday:
        return (milliseconds_of(to) - milliseconds_of(from)) / (7 * milliseconds_a_day);
    default:
        return (milliseconds_of(to) - milliseconds_of(from)) / milliseconds_in(interval);
    }
}

// Which week of the year is the first: 1 that of 1 January, 2 the first with four days, 3 the first whole
// one.
std::int64_t week_of_year(const Moment& moment, int first_day, std::int64_t rule)
{
    const int day = moment.day_of_year - 1;
    const int start_of_week = day - (weekday_of(moment, first_day) - 1); // may lie in the year before
    const int days_before_first_week = ((start_of_week % 7) + 7) % 7;    // of 1 January's week, in this year
    const bool first_counts =
        rule <= 1 || days_before_first_week == 0 || (rule == 2 && days_before_first_week >= 4);
    const int week = (start_of_week + (days_before_first_week == 0 ? 0 : 7 - days_before_first_week)) / 7;
    const std::int64_t number = week + (first_counts ? 1 : 0);
    if (number > 0) return number;
    const Moment last_day = moment_of(plus_milliseconds(first_of_month(moment.at.year, 1), -1));
    return week_of_year(last_day, first_day, rule);
}

Variant date_part(const Arguments& given)
{
    const Moment moment = moment_of(given.date(1));
    const int first_day = first_day_of_week(given, 2);
    switch (interval_in(given)) {
    case Interval::year:
        return moment.at.year;
    case Interval::quarter:
        return quarter_of(moment);
    case Interval::month:
        return moment.at.month;
    case Interval::day_of_year:
        return moment.day_of_year;
    case Interval::day:
        return moment.at.day;
    case Interval::weekday:
        return weekday_of(moment, first_day);
    case Interval::week:
        return week_of_year(moment, first_day, given.whole(3, 1));
    case Interval::hour:
        return moment.at.hour;
    case Interval::minute:
        return moment.at.minute;
    case Interval::second:
        return moment.at.second;
    }
    throw invalid_call();
}

// DateSerial(2010, 13, 0) is 31 December 2010: months and days run over.
Variant date_serial(const Arguments& given)
{
    const Date month = first_of_month(full_year(given.whole(0)), given.whole(1));
    return plus_milliseconds(month, (given.number(2) - 1) * milliseconds_a_day);
}

Variant time_serial(const Arguments& given)
{
    const double seconds = given.number(0) * 3600 + given.number(1) * 60 + given.number(2);
    return time_of_day(plus_milliseconds({}, seconds * 1000));
}

Variant new_date(const Arguments& given)
{
    std::array<int, 6> parts{0, 1, 1};
    for (std::size_t i = 0; i < given.size(); ++i) {
        const std::int64_t part = given.whole(i);
        if (part < 0 || part > 9999) throw type_mismatch();
        parts[i] = static_cast<int>(part);
    }
    return Date::of(parts[0], parts[1], parts[2], parts[3], parts[4], parts[5]);
}

Variant now(const Arguments& given) { return given.environment().now(); }
Variant today(const Arguments& given) { return midnight(given.environment().now()); }
Variant time_now(const Arguments& given) { return time_of_day(given.environment().now()); }
Variant date_value(const Arguments& given) { return midnight(given.date(0)); }
Variant time_value(const Arguments& given) { return time_of_day(given.date(0)); }

Variant year(const Arguments& given) { return moment_of(given.date(0)).at.year; }
Variant month(const Arguments& given) { return moment_of(given.date(0)).at.month; }
Variant day(const Arguments& given) { return moment_of(given.date(0)).at.day; }
Variant hour(const Arguments& given) { return moment_of(given.date(0)).at.hour; }
Variant minute(const Arguments& given) { return moment_of(given.date(0)).at.minute; }
Variant second(const Arguments& given) { return moment_of(given.date(0)).at.second; }
Variant weekday(const Arguments& given)
{
    return weekday_of(moment_of(given.date(0)), first_day_of_week(given, 1));
}

std::size_t index_below(const Arguments& given, std::size_t limit)
{
    const std::int64_t number = given.whole(0);
    if (number < 1 || number > static_cast<std::int64_t>(limit)) throw invalid_call();
    return static_cast<std::size_t>(number) - 1;
}

Variant month_name(const Arguments& given)
{
    const Culture& culture = given.culture();
    return (given[1].boolean() ? culture.short_months : culture.months)[index_below(given, 12)];
}

Variant weekday_name(const Arguments& given)
{
    const Culture& culture = given.culture();
    const std::size_t day = index_below(given, 7) + first_day_of_week(given, 2) - 1;
    return (given[1].boolean() ? culture.short_days : culture.days)[day % 7];
}

Variant days_in_month_of(const Arguments& given)
{
    const Moment first = moment_of(first_of_month(given.whole(0), given.whole(1)));
    return days_in_month(first.at.year, first.at.month);
}

Variant leap_year(const Arguments& given) { return is_leap_year(given.whole(0)); }

constexpr NamedFunction functions[] = {{u"now", 0, 0, now},
                                       {u"datetime.now", 0, 0, now},
                                       {u"date.now", 0, 0, now},
                                       {u"today", 0, 0, today},
                                       {u"datetime.today", 0, 0, today},
                                       {u"date.today", 0, 0, today},
                                       {u"timeofday", 0, 0, time_now},
                                       {u"year", 1, 1, year},
                                       {u"month", 1, 1, month},
                                       {u"day", 1, 1, day},
                                       {u"hour", 1, 1, hour},
                                       {u"minute", 1, 1, minute},
                                       {u"second", 1, 1, second},
                                       {u"weekday", 1, 2, weekday},
                                       {u"dateadd", 3, 3, date_add},
                                       {u"datediff", 3, 5, date_diff},
                                       {u"datepart", 2, 4, date_part},
                                       {u"dateserial", 3, 3, date_serial},
                                       {u"timeserial", 3, 3, time_serial},
                                       {u"datevalue", 1, 1, date_value},
                                       {u"timevalue", 1, 1, time_value},
                                       {u"monthname", 1, 2, month_name},
                                       {u"weekdayname", 1, 3, weekday_name},
                                       {u"datetime.daysinmonth", 2, 2, days_in_month_of},
                                       {u"date.daysinmonth", 2, 2, days_in_month_of},
                                       {u"datetime.isleapyear", 1, 1, leap_year},
                                       {u"date.isleapyear", 1, 1, leap_year},
                                       {u"new date", 3, 6, new_date},
                                       {u"new datetime", 3, 6, new_date}};

template <std::int64_t milliseconds>
Variant add_time(const Arguments& given)
{
    return plus_milliseconds(given.date(0), given.number(1) * milliseconds);
}

template <std::int64_t months>
Variant add_months(const Arguments& given)
{
    return plus_months(given.date(0), count_of(given.number(1)) * months);
}

Variant day_of_week(const Arguments& given) { return moment_of(given.date(0)).day_of_week; }
Variant day_of_year(const Arguments& given) { return moment_of(given.date(0)).day_of_year; }
Variant millisecond(const Arguments& given) { return moment_of(given.date(0)).millisecond; }

template <char16_t letter>
Variant written(const Arguments& given)
{
    return formatted(given.date(0), TextView(&std::integral_constant<char16_t, letter>::value, 1),
                     given.culture());
}

Variant subtract(const Arguments& given)
{
    return static_cast<double>(milliseconds_of(given.date(0)) - milliseconds_of(given.date(1))) /
           milliseconds_a_day;
}

// What lies between two dates is a number of days; these tell it in another unit.
template <std::int64_t units_a_day>
Variant total(const Arguments& given)
{
    return given.number(0) * units_a_day;
}

// A part of the clock that such a time would show.
template <std::int64_t units_a_day, std::int64_t wraps_at>
Variant clock_part(const Arguments& given)
{
    const double milliseconds = std::round(given.number(0) * milliseconds_a_day);
    if (!(std::abs(milliseconds) < 1e15)) throw overflow();
    return static_cast<std::int64_t>(milliseconds) / (milliseconds_a_day / units_a_day) % wraps_at;
}

constexpr std::int64_t ever = 1'000'000'000;
constexpr NamedFunction members[] = {{u"year", 1, 1, year},
                                     {u"month", 1, 1, month},
                                     {u"day", 1, 1, day},
                                     {u"hour", 1, 1, hour},
                                     {u"minute", 1, 1, minute},
                                     {u"second", 1, 1, second},
                                     {u"millisecond", 1, 1, millisecond},
                                     {u"dayofweek", 1, 1, day_of_week},
                                     {u"dayofyear", 1, 1, day_of_year},
                                     {u"date", 1, 1, date_value},
                                     {u"timeofday", 1, 1, time_value},
                                     {u"adddays", 2, 2, add_time<milliseconds_a_day>},
                                     {u"addhours", 2, 2, add_time<3'600'000>},
                                     {u"addminutes", 2, 2, add_time<60'000>},
                                     {u"addseconds", 2, 2, add_time<1000>},
                                     {u"addmilliseconds", 2, 2, add_time<1>},
                                     {u"addmonths", 2, 2, add_months<1>},
                                     {u"addyears", 2, 2, add_months<12>},
                                     {u"subtract", 2, 2, subtract},
                                     {u"toshortdatestring", 1, 1, written<u'd'>},
                                     {u"tolongdatestring", 1, 1, written<u'D'>},
                                     {u"toshorttimestring", 1, 1, written<u't'>},
                                     {u"tolongtimestring", 1, 1, written<u'T'>},
                                     {u"totaldays", 1, 1, total<1>},
                                     {u"totalhours", 1, 1, total<24>},
                                     {u"totalminutes", 1, 1, total<1440>},
                                     {u"totalseconds", 1, 1, total<86'400>},
                                     {u"days", 1, 1, clock_part<1, ever>},
                                     {u"hours", 1, 1, clock_part<24, 24>},
                                     {u"minutes", 1, 1, clock_part<1440, 60>},
                                     {u"seconds", 1, 1, clock_part<86'400, 60>}};

} // namespace

std::span<const NamedFunction> date_functions() { return functions; }

std::span<const NamedFunction> date_members() { return members; }

} // namespace tolvex::printing
