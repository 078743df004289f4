#include "database/embedded/tsql/date_styles.hpp"

#include "core/dates.hpp"
#include "core/display_patterns.hpp"
#include "core/errors.hpp"
#include "core/numbers.hpp"
#include "core/text.hpp"
#include "database/embedded/stored_dates.hpp"

#include <array>

namespace tolvex::embedded {

namespace {

constexpr std::array<TextView, 12> months = {u"Jan", u"Feb", u"Mar", u"Apr", u"May", u"Jun",
                                             u"Jul", u"Aug", u"Sep", u"Oct", u"Nov", u"Dec"};

// "mm/dd/yyyy…" to "dd/mm/yyyy…"
Text day_first(const Text& text)
{
    const auto first = text.find_first_of(u"/-");
    const auto second = text.find_first_of(u"/-", first + 1);
    if (first == Text::npos || second == Text::npos) throw type_mismatch();
    return text.substr(first + 1, second - first) + text.substr(0, first) + text.substr(second);
}

} // namespace

Text date_in_style(Date date, int style)
{
    switch (style) {
    case 101:
        return format(date, u"mm/dd/yyyy");
    case 102:
        return format(date, u"yyyy.mm.dd");
    case 103:
        return format(date, u"dd/mm/yyyy");
    case 104:
        return format(date, u"dd.mm.yyyy");
    case 105:
        return format(date, u"dd-mm-yyyy");
    case 106:
        return format(date, u"dd ") + Text(months[calendar(date).month - 1]) + format(date, u" yyyy");
    case 108:
        return format(date, u"hh:mm:ss");
    case 110:
        return format(date, u"mm-dd-yyyy");
    case 111:
        return format(date, u"yyyy/mm/dd");
    case 112:
        return format(date, u"yyyymmdd");
    case 113:
        return date_in_style(date, 106) + format(date, u" hh:mm:ss") + u":000";
    case 120:
        return stored_date(date);
    case 121:
        return stored_date(date) + u".000";
    case 126:
        return format(date, u"yyyy-mm-ddThh:mm:ss");
    }
    throw invalid_call(u"convert: el estilo " + decimal(style) + u" no existe para fechas");
}

Date read_date(TextView text, int style)
{
    if (style == 101 || style == 110) return read_date(day_first(trim(text)));
    if (style == 102 || style == 104) return read_date(replace_all(text, u".", u"-"));
    return read_date(text);
}

} // namespace tolvex::embedded
