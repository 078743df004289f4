// Date-times as the embedded database holds them: the text "yyyy-mm-dd hh:mm:ss".
#pragma once

#include "tolvex/types.hpp"

namespace tolvex::embedded {

Text stored_date(Date date);
// Reads the stored form and what statements write: "yyyy-mm-dd" with a time after a blank or a "T",
// "yyyymmdd", and dd-mm-yyyy. Throws Error 13 for anything else.
Date read_date(TextView text);

} // namespace tolvex::embedded
