// Dates as texts.
#pragma once

#include "printing/expressions/culture.hpp"

namespace tolvex::printing {

// By a standard or custom format. Without one the day, and the time unless it is midnight; a date of the day
// 0 is a time alone. Throws Error 5 for a format that there is not, 6 for a date outside the calendar.
Text format_date(Date date, TextView format, const Culture& culture);

} // namespace tolvex::printing
