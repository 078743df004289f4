#include "database/embedded/stored_dates.hpp"

#include "core/dates.hpp"
#include "core/display_patterns.hpp"
#include "core/text.hpp"

#include <algorithm>

namespace tolvex::embedded {

namespace {

bool is_compact(TextView text)
{
    return text.size() >= 8 && std::all_of(text.begin(), text.begin() + 8, is_digit);
}

// "yyyymmdd…" to "yyyy-mm-dd…"
Text with_dashes(TextView text)
{
    return Text(text.substr(0, 4)) + u"-" + Text(text.substr(4, 2)) + u"-" + Text(text.substr(6));
}

} // namespace

Text stored_date(Date date) { return format(date, u"yyyy-mm-dd hh:mm:ss"); }

Date read_date(TextView text)
{
    const Text trimmed = trim(text);
    return to_date(is_compact(trimmed) ? with_dashes(trimmed) : trimmed);
}

} // namespace tolvex::embedded
