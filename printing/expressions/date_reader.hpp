// Dates as people write them in texts.
#pragma once

#include "printing/expressions/culture.hpp"

namespace tolvex::printing {

// "22/10/2010", "2010-10-22T10:30:00", "22 de octubre de 2010", "10:30 p. m.": days and months in the order
// of the culture, a year of four digits also first. A time alone is of the day 0. Throws Error 13 for
// anything else.
Date read_date(TextView text, const Culture& culture);

} // namespace tolvex::printing
