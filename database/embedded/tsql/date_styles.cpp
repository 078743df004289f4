#include "database/embedded/tsql/date_styles.hpp"

#include "core/dates.hpp"
#include "core/display_patterns.hpp"
#include "core/errors.hpp"
#include "core/numbers.hpp"
#include "core/text.hpp"
#include "database/embedded/stored_dates.hpp"

#include <array>
#include <utility>

namespace tolvex::embedded {

namespace {

constexpr std::array<TextView, 12> months = {u"Jan", u"Feb", u"Mar", u"Apr", u"May", u"Jun",
                                             u"Jul", u"Aug", u"Sep", u"Oct", u"Nov", u"Dec"};

// Those without a month's name.
constexpr std::pair<int, TextView> patterns[] = {{101, u"mm/dd/yyyy"},
                                                 {102, u"yyyy.mm.dd"},
                                                 {103, u"dd/mm/yyyy"},
                                                 {104, u"dd.mm.yyyy"},
                                                 {105, u"dd-mm-yyyy"},
                                                 {108, u"hh:mm:ss"},
                                                 {110, u"mm-dd-yyyy"},
                                                 {111, u"yyyy/mm/dd"},
                                                 {112, u"yyyymmdd"},
                                                 {120, u"yyyy-mm-dd hh:mm:ss"},
                                                 {121, u"yyyy-mm-dd hh:mm:ss.000"},
                                                 {126, u"yyyy-mm-ddThh:mm:ss"}};

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
    if (style == 106)
        return format(date, u"dd ") + Text(months[calendar(date).month - 1]) + format(date, u" yyyy");
    if (style == 113) return date_in_style(date, 106) + format(date, u" hh:mm:ss:000");
    for (const auto& [number, pattern] : patterns)
        if (number == style) return format(date, pattern);
    throw invalid_call(u"convert: el estilo " + decimal(style) + u" no existe para fechas");
}

Date read_date(TextView text, int style)
{
    if (style == 101 || style == 110) return read_date(day_first(trim(text)));
    if (style == 102 || style == 104) return read_date(replace_all(text, u".", u"-"));
    return read_date(text);
}

} // namespace tolvex::embedded
