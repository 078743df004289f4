// Date-times as the embedded database holds them: the text "yyyy-mm-dd hh:mm:ss".
#pragma once

#include "tolvex/types.hpp"

namespace tolvex::embedded {

Text stored_date(Date date);
// Reads the stored form and what statements write: "yyyy-mm-dd" with a time after a blank or a "T",
// "yyyymmdd", and dd-mm-yyyy. Throws Error 13 for anything else.
Date read_date(TextView text);

// The text that T-SQL's convert gives a date in a style (101 to 126), and what it reads by that style.
// Throws Error 5 for an unknown style.
Text date_in_style(Date date, int style);
Date read_date(TextView text, int style);

} // namespace tolvex::embedded
