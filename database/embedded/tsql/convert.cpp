#include "database/embedded/tsql/convert.hpp"

#include "core/display_patterns.hpp"
#include "core/errors.hpp"
#include "core/numbers.hpp"
#include "core/text.hpp"
#include "database/embedded/stored_dates.hpp"
#include "database/embedded/tsql/date_styles.hpp"

#include <cmath>
#include <limits>
#include <map>

namespace tolvex::embedded {

namespace {

constexpr std::size_t unlimited = std::numeric_limits<std::size_t>::max();
constexpr int first_date_style = 100;

// A type's name and the numbers in its parentheses.
struct Type
{
    Text name;
    std::vector<Text> numbers;

    explicit Type(TextView text)
    {
        const auto opening = std::min(text.find(u'('), text.size());
        name = without(without(lower_case(trim(text.substr(0, opening))), u'['), u']');
        const auto closing = std::min(text.find(u')'), text.size());
        if (opening < closing) numbers = split(text.substr(opening + 1, closing - opening - 1), u',');
    }

    std::size_t length(std::size_t otherwise) const
    {
        if (numbers.empty()) return otherwise;
        if (equal_ignoring_case(trim(numbers[0]), u"max")) return unlimited;
        return static_cast<std::size_t>(to_int32(to_number(numbers[0])));
    }

    int scale(int otherwise) const
    {
        return numbers.size() < 2 ? otherwise : to_int16(to_number(numbers[1]));
    }
};

Text text_of(const Value& value, int style)
{
    if (!value.is_text() || style <= first_date_style) return value.text();
    return date_in_style(read_date(value.text()), style);
}

Value to_characters(const Value& value, const Type& type, int style)
{
    constexpr std::size_t default_length = 30;
    const std::size_t length = type.length(default_length);
    const Text text = text_of(value, style);
    // As T-SQL marks a number that does not fit, rather than cut it.
    if (!value.is_text() && text.size() > length) return u"*";
    return clip(text, length);
}

Value to_padded_characters(const Value& value, const Type& type, int style)
{
    Text text = to_characters(value, type, style).text();
    text.resize(std::max(text.size(), type.length(text.size())), u' ');
    return text;
}

Value to_long_text(const Value& value, const Type&, int style) { return text_of(value, style); }

template <std::int64_t Least, std::int64_t Most>
Value to_whole(const Value& value, const Type&, int)
{
    const double number = std::trunc(value.number());
    if (!(number >= static_cast<double>(Least) && number <= static_cast<double>(Most))) throw overflow();
    return static_cast<std::int64_t>(number);
}

constexpr auto to_tinyint = to_whole<0, 255>;
constexpr auto to_smallint = to_whole<-32'768, 32'767>;
constexpr auto to_int = to_whole<-2'147'483'648, 2'147'483'647>;
constexpr auto to_bigint = to_whole<-9'007'199'254'740'992, 9'007'199'254'740'992>; // exact in a double

Value rounded_to(const Value& value, int decimals)
{
    return to_number(format(value.number(), u"0." + Text(decimals, u'0')));
}

Value to_decimal(const Value& value, const Type& type, int) { return rounded_to(value, type.scale(0)); }

Value to_money(const Value& value, const Type&, int) { return rounded_to(value, 4); }

Value to_float(const Value& value, const Type&, int) { return value.number(); }

Value to_bit(const Value& value, const Type&, int) { return std::int64_t{value.boolean()}; }

Value to_date_time(const Value& value, const Type&, int style)
{
    return stored_date(read_date(value.text(), style));
}

Value to_day(const Value& value, const Type&, int style)
{
    return format(read_date(value.text(), style), u"yyyy-mm-dd");
}

using Conversion = Value (*)(const Value&, const Type&, int);

const std::map<Text, Conversion>& conversions()
{
    static const std::map<Text, Conversion> by_name = {{u"varchar", to_characters},
                                                       {u"nvarchar", to_characters},
                                                       {u"char", to_padded_characters},
                                                       {u"text", to_long_text},
                                                       {u"nchar", to_padded_characters},
                                                       {u"ntext", to_long_text},
                                                       {u"tinyint", to_tinyint},
                                                       {u"smallint", to_smallint},
                                                       {u"int", to_int},
                                                       {u"integer", to_int},
                                                       {u"bigint", to_bigint},
                                                       {u"decimal", to_decimal},
                                                       {u"numeric", to_decimal},
                                                       {u"money", to_money},
                                                       {u"smallmoney", to_money},
                                                       {u"float", to_float},
                                                       {u"real", to_float},
                                                       {u"bit", to_bit},
                                                       {u"datetime", to_date_time},
                                                       {u"smalldatetime", to_date_time},
                                                       {u"datetime2", to_date_time},
                                                       {u"date", to_day}};
    return by_name;
}

} // namespace

Value converted(const Value& value, TextView type_text, int style)
{
    const Type type(type_text);
    const auto conversion = conversions().find(type.name);
    if (conversion == conversions().end())
        throw invalid_call(u"convert: el tipo " + type.name + u" no se conoce");
    return value.is_null() ? Value() : conversion->second(value, type, style);
}

} // namespace tolvex::embedded
