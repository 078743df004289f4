#include "printing/expressions/formats/date_formats.hpp"

#include "core/errors.hpp"
#include "core/text.hpp"
#include "printing/expressions/moments.hpp"
#include "printing/expressions/names.hpp"

#include <algorithm>

namespace tolvex::printing {

namespace {

Text padded(int number, std::size_t width)
{
    const Text digits = to_text(std::to_string(number));
    return Text(width > digits.size() ? width - digits.size() : 0, u'0') + digits;
}

// Between the numbers of the culture's short date.
Text date_separator(const Culture& culture)
{
    const auto found = culture.short_date.find_first_not_of(u"dMy");
    return culture.short_date.substr(found, 1);
}

class DateWriter
{
public:
    DateWriter(Date date, TextView pattern, const Culture& culture)
        : moment_(moment_of(date)), rest_(pattern), culture_(culture)
    {}

    Text write()
    {
        while (!rest_.empty()) write_piece();
        return std::move(written_);
    }

private:
    void write_piece()
    {
        const char16_t c = rest_.front();
        const std::size_t width = std::min(rest_.find_first_not_of(c), rest_.size());
        if (TextView(u"dMyhHmsfFtzKg").find(c) != TextView::npos) {
            rest_.remove_prefix(width);
            write_field(c, width);
            return;
        }
        rest_.remove_prefix(1);
        if (c == u'\'' || c == u'"')
            write_quoted(c);
        else if (c == u'\\')
            write_escaped();
        else if (c == u'/')
            written_ += date_separator(culture_);
        else if (c != u'%') // which only tells "%d" from the standard format "d"
            written_ += c;
    }

    void write_field(char16_t field, std::size_t width)
    {
        const CalendarDate& at = moment_.at;
        switch (field) {
        case u'd':
            return write_day(width);
        case u'M':
            return write_month(width);
        case u'y':
            written_ += padded(width < 3 ? at.year % 100 : at.year, shortened(width));
            return;
        case u'h':
            written_ += padded(at.hour % 12 == 0 ? 12 : at.hour % 12, at_most_two(width));
            return;
        case u'H':
            written_ += padded(at.hour, at_most_two(width));
            return;
        case u'm':
            written_ += padded(at.minute, at_most_two(width));
            return;
        case u's':
            written_ += padded(at.second, at_most_two(width));
            return;
        case u'f':
        case u'F':
            written_ += clip(padded(moment_.millisecond, 3) + u"0000", shortened(width));
            return;
        case u't':
            written_ += clip(at.hour < 12 ? culture_.am : culture_.pm, width > 1 ? Text::npos : 1);
            return;
        default:
            return; // time zones and eras, which dates of a report do not have
        }
    }

    void write_day(std::size_t width)
    {
        if (width < 3)
            written_ += padded(moment_.at.day, width);
        else
            written_ += (width == 3 ? culture_.short_days : culture_.days)[moment_.day_of_week];
    }

    void write_month(std::size_t width)
    {
        if (width < 3)
            written_ += padded(moment_.at.month, width);
        else
            written_ += (width == 3 ? culture_.short_months : culture_.months)[moment_.at.month - 1];
    }

    void write_quoted(char16_t quote)
    {
        const std::size_t end = std::min(rest_.find(quote), rest_.size());
        written_ += rest_.substr(0, end);
        rest_.remove_prefix(std::min(end + 1, rest_.size()));
    }

    void write_escaped()
    {
        if (rest_.empty()) return;
        written_ += rest_.front();
        rest_.remove_prefix(1);
    }

    static std::size_t at_most_two(std::size_t width) { return std::min<std::size_t>(width, 2); }
    static std::size_t shortened(std::size_t width) { return std::min<std::size_t>(width, 7); }

    Moment moment_;
    TextView rest_;
    const Culture& culture_;
    Text written_;
};

// Formats for machines, the same everywhere.
constexpr TextView rfc_1123 = u"ddd, dd MMM yyyy HH':'mm':'ss 'GMT'",
                   sortable = u"yyyy'-'MM'-'dd'T'HH':'mm':'ss", universal = u"yyyy'-'MM'-'dd HH':'mm':'ss'Z'",
                   round_trip = u"yyyy'-'MM'-'dd'T'HH':'mm':'ss'.'fffffff";

// The pattern of a standard format of one letter.
Text standard_pattern(char16_t letter, const Culture& culture)
{
    switch (letter) {
    case u'd':
        return culture.short_date;
    case u'D':
        return culture.long_date;
    case u't':
        return culture.short_time;
    case u'T':
        return culture.long_time;
    case u'f':
        return culture.long_date + u" " + culture.short_time;
    case u'F':
    case u'U':
        return culture.long_date + u" " + culture.long_time;
    case u'g':
        return culture.short_date + u" " + culture.short_time;
    case u'G':
        return culture.short_date + u" " + culture.long_time;
    case u'm':
    case u'M':
        return culture.month_day;
    case u'y':
    case u'Y':
        return culture.year_month;
    case u'r':
    case u'R':
        return Text(rfc_1123);
    case u's':
        return Text(sortable);
    case u'u':
        return Text(universal);
    case u'o':
    case u'O':
        return Text(round_trip);
    default:
        throw invalid_call(u"Formato desconocido: " + Text(1, letter));
    }
}

// The names that Visual Basic has for common formats.
TextView format_of_name(TextView name)
{
    static constexpr std::pair<TextView, TextView> names[] = {
        {u"General Date", u"G"},  {u"Long Date", u"D"}, {u"Medium Date", u"dd-MMM-yy"},
        {u"Short Date", u"d"},    {u"Long Time", u"T"}, {u"Medium Time", u"t"},
        {u"Short Time", u"HH:mm"}};
    const TextView* format = find_name(names, name);
    return format ? *format : name;
}

Text general_pattern(Date date, const Culture& culture)
{
    if (date.days > -1 && date.days < 1) return culture.long_time;
    return standard_pattern(time_of_day(date).days == 0 ? u'd' : u'G', culture);
}

} // namespace

Text format_date(Date date, TextView format, const Culture& culture)
{
    const TextView pattern = format_of_name(format);
    if (pattern.empty()) return DateWriter(date, general_pattern(date, culture), culture).write();
    if (pattern.size() > 1) return DateWriter(date, pattern, culture).write();
    const bool for_machines = TextView(u"rRsuoO").find(pattern.front()) != TextView::npos;
    const Culture& shown = for_machines ? printing::culture(u"invariant") : culture;
    return DateWriter(date, standard_pattern(pattern.front(), shown), shown).write();
}

} // namespace tolvex::printing
