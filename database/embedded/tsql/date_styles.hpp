// The numbered date styles of T-SQL's convert, 101 to 126.
#pragma once

#include "tolvex/types.hpp"

namespace tolvex::embedded {

// The text that a style gives a date. Throws Error 5 for an unknown style.
Text date_in_style(Date date, int style);
// The date that a text holds by a style; those without a form of their own read what is stored. Throws Error
// 13 for what is no date.
Date read_date(TextView text, int style);

} // namespace tolvex::embedded
