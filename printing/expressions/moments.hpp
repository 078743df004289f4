// Dates for reckoning: whole milliseconds on one straight line, and the calendar that people read on it.
#pragma once

#include "core/dates.hpp"

namespace tolvex::printing {

constexpr std::int64_t milliseconds_a_day = 86'400'000;

// Since 30 December 1899; before it they are negative. Throws Error 6 outside the years 100 to 9999.
std::int64_t milliseconds_of(Date date);
Date date_of_milliseconds(std::int64_t milliseconds);

struct Moment
{
    CalendarDate at; // its second is not rounded
    int millisecond;
    int day_of_week; // from Sunday, 0
    int day_of_year; // from 1
};
Moment moment_of(Date date);

// All of these throw Error 6 when they leave the years 100 to 9999.
Date plus_milliseconds(Date date, double milliseconds);
Date plus_months(Date date, std::int64_t months); // the day stays, or becomes the last of the month
// The first day of the year's month, which may lie beyond 1 to 12.
Date first_of_month(std::int64_t year, std::int64_t month);
int days_in_month(int year, int month);
bool is_leap_year(std::int64_t year);

Date midnight(Date date);
// Of 30 December 1899, as times without a day are held.
Date time_of_day(Date date);

// Years of two digits are those of 1930 to 2029.
std::int64_t full_year(std::int64_t year);

} // namespace tolvex::printing
