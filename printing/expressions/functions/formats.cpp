#include "core/errors.hpp"
#include "printing/expressions/arithmetic.hpp"
#include "printing/expressions/formats/number_formats.hpp"
#include "printing/expressions/functions/table.hpp"
#include "printing/expressions/functions/texts.hpp"
#include "printing/expressions/lengths.hpp"

namespace tolvex::printing {

namespace {

Variant format(const Arguments& given) { return formatted(given[0], given.text(1), given.culture()); }

// A choice of three: -1 True, 0 False, -2 and left out what the culture does.
bool chosen(const Arguments& given, std::size_t i, bool otherwise)
{
    const std::int64_t choice = given.whole(i, -2);
    return choice == -2 ? otherwise : choice != 0;
}

// FormatNumber(number, decimals, leading zero, parentheses, groups) and its like.
template <Text (*write)(Decimal, const NumberStyle&, const Culture&), bool in_parentheses_by_culture>
Variant format_styled(const Arguments& given)
{
    if (!given.has(0)) return u"";
    NumberStyle style;
    if (const std::int64_t decimals = given.whole(1, -1); decimals != -1) {
        if (decimals < 0 || decimals > 99) throw invalid_call();
        style.decimals = static_cast<int>(decimals);
    }
    style.leading_zero = chosen(given, 2, true);
    style.negative_in_parentheses =
        chosen(given, 3, in_parentheses_by_culture && given.culture().negative_in_parentheses);
    style.grouped = chosen(given, 4, true);
    return write(exact_decimal(as_number(given[0])), style, given.culture());
}

Variant format_date_time(const Arguments& given)
{
    static constexpr TextView formats[] = {u"", u"D", u"d", u"T", u"HH:mm"};
    if (!given.has(0)) return u"";
    const std::size_t format = given.has(1) ? given.length(1) : 0;
    if (format >= std::size(formats)) throw invalid_call();
    return formatted(given.date(0), formats[format], given.culture());
}

Error bad_composite(TextView format) { return invalid_call(u"Formato no válido: " + clip(format, 40)); }

// The value of "{0,10:N2}": the argument 0, formatted, at least 10 characters wide; -10 fills on the right.
Text placeholder_value(TextView inside, TextView whole, const Arguments& given)
{
    const auto colon = std::min(inside.find(u':'), inside.size());
    const TextView format = inside.substr(std::min(colon + 1, inside.size()));
    const std::vector<Text> place = split(inside.substr(0, colon), u',');
    std::int64_t index = 0, width = 0;
    try {
        index = Variant(place[0]).whole_number();
        width = place.size() > 1 ? Variant(place[1]).whole_number() : 0;
    } catch (const Error&) {
        throw bad_composite(whole);
    }
    const auto count = static_cast<std::int64_t>(given.size()) - 1;
    constexpr std::int64_t widest = 10'000;
    if (place.size() > 2 || index < 0 || index >= count || width > widest || width < -widest)
        throw bad_composite(whole);
    const Text text = formatted(given[static_cast<std::size_t>(index) + 1], format, given.culture());
    return width < 0 ? padded_right(text, static_cast<std::size_t>(-width), u' ')
                     : padded_left(text, static_cast<std::size_t>(width), u' ');
}

// String.Format("{0} de {1:N2}", a, b); doubled braces stand for themselves.
Variant string_format(const Arguments& given)
{
    const Text format = given.text(0);
    Text result;
    for (std::size_t i = 0; i < format.size(); ++i) {
        const char16_t c = format[i];
        if ((c == u'{' || c == u'}') && i + 1 < format.size() && format[i + 1] == c) {
            result += c;
            ++i;
        } else if (c == u'{') {
            const std::size_t end = format.find(u'}', i);
            if (end == Text::npos) throw bad_composite(format);
            result += placeholder_value(TextView(format).substr(i + 1, end - i - 1), format, given);
            require_length(result.size());
            i = end;
        } else if (c == u'}')
            throw bad_composite(format);
        else
            result += c;
    }
    return result;
}

constexpr NamedFunction functions[] = {{u"format", 1, 2, format},
                                       {u"formatnumber", 1, 5, format_styled<plain_number, false>},
                                       {u"formatcurrency", 1, 5, format_styled<amount_with_symbol, true>},
                                       {u"formatpercent", 1, 5, format_styled<percentage, false>},
                                       {u"formatdatetime", 1, 2, format_date_time},
                                       {u"string.format", 1, any_number, string_format}};

} // namespace

std::span<const NamedFunction> format_functions() { return functions; }

} // namespace tolvex::printing
