// Automation dates: their calendar, and the texts that people write them as.
#pragma once

#include "tolvex/types.hpp"

namespace tolvex {

struct CalendarDate
{
    int year, month, day, hour, minute, second;
};
// Calendar of an automation date, to the nearest second. Throws Error 6 outside the years 100 to 9999.
CalendarDate calendar(Date date);
int year_of(Date date);

// Reads "yyyy-mm-dd", with "T" or a blank and "hh:mm[:ss[.fff]]" after it, the same with "/", and
// dd-mm-yyyy. Throws Error 13 for anything else and for a day that does not exist.
Date to_date(TextView text);

} // namespace tolvex
