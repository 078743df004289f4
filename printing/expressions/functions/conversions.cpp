#include "core/decimal_reader.hpp"
#include "core/errors.hpp"
#include "core/numbers.hpp"
#include "core/text.hpp"
#include "printing/expressions/arithmetic.hpp"
#include "printing/expressions/expression.hpp"
#include "printing/expressions/functions/table.hpp"

#include <charconv>
#include <limits>

namespace tolvex::printing {

namespace {

template <class Integer>
Variant whole_in_range(const Arguments& given)
{
    const std::int64_t whole = given.whole(0);
    if (whole < std::numeric_limits<Integer>::min() || whole > std::numeric_limits<Integer>::max())
        throw overflow();
    return whole;
}

Variant as_text(const Arguments& given) { return given.text(0); }
Variant as_double(const Arguments& given) { return given.number(0); }
Variant as_boolean(const Arguments& given) { return given[0].boolean(); }
Variant as_date(const Arguments& given) { return given.date(0); }
Variant as_it_is(const Arguments& given) { return given[0]; }

// The number that a single-precision one looks like.
Variant as_single(const Arguments& given)
{
    const double number = given.number(0);
    if (std::abs(number) > std::numeric_limits<float>::max()) throw overflow();
    char digits[40];
    const auto end = std::to_chars(digits, std::end(digits), static_cast<float>(number)).ptr;
    double shown = 0;
    std::from_chars(digits, end, shown);
    return shown;
}

Variant as_amount(const Arguments& given)
{
    const Variant number = as_number(given[0]);
    if (number.get_if<Currency>()) return number;
    return amount_or_number(exact_decimal(given[0].get_if<Text>() ? given[0] : number));
}

Variant as_character(const Arguments& given) { return clip(given.text(0), 1); }

Variant leading(const Arguments& given) { return leading_number(given.text(0)); }

// Str leaves the place of a plus sign free.
Variant str(const Arguments& given)
{
    const Text text = formatted(as_number(given[0]), {}, culture(u"invariant"));
    return text.starts_with(u'-') ? text : u" " + text;
}

template <class Conversion>
bool succeeds(Conversion conversion)
{
    try {
        conversion();
        return true;
    } catch (const Error&) {
        return false;
    }
}

Variant is_numeric(const Arguments& given)
{
    return !given[0].is_nothing() && !given[0].get_if<Date>() && succeeds([&] { given[0].number(); });
}

Variant is_date(const Arguments& given)
{
    return !given[0].is_nothing() && succeeds([&] { given.date(0); });
}

Variant is_array(const Arguments& given) { return given[0].get_if<Variant::List>() != nullptr; }

Variant is_nothing(const Arguments& given) { return given[0].is_nothing(); }

Variant culture_name(const Arguments& given) { return given.text(0); }

Variant own_value(const Arguments& given) { return given.environment().own_value(); }

constexpr auto as_int16 = whole_in_range<std::int16_t>;
constexpr auto as_int32 = whole_in_range<std::int32_t>;
constexpr auto as_int64 = whole_in_range<std::int64_t>;
constexpr auto as_byte = whole_in_range<std::uint8_t>;

constexpr NamedFunction functions[] = {{u"cstr", 1, 1, as_text},
                                       {u"convert.tostring", 1, 1, as_text},
                                       {u"cint", 1, 1, as_int32},
                                       {u"convert.toint32", 1, 1, as_int32},
                                       {u"integer.parse", 1, 1, as_int32},
                                       {u"int32.parse", 1, 1, as_int32},
                                       {u"clng", 1, 1, as_int64},
                                       {u"convert.toint64", 1, 1, as_int64},
                                       {u"long.parse", 1, 1, as_int64},
                                       {u"int64.parse", 1, 1, as_int64},
                                       {u"cshort", 1, 1, as_int16},
                                       {u"convert.toint16", 1, 1, as_int16},
                                       {u"cbyte", 1, 1, as_byte},
                                       {u"convert.tobyte", 1, 1, as_byte},
                                       {u"cdbl", 1, 1, as_double},
                                       {u"convert.todouble", 1, 1, as_double},
                                       {u"double.parse", 1, 1, as_double},
                                       {u"csng", 1, 1, as_single},
                                       {u"convert.tosingle", 1, 1, as_single},
                                       {u"cdec", 1, 1, as_amount},
                                       {u"convert.todecimal", 1, 1, as_amount},
                                       {u"decimal.parse", 1, 1, as_amount},
                                       {u"cdate", 1, 1, as_date},
                                       {u"convert.todatetime", 1, 1, as_date},
                                       {u"datetime.parse", 1, 1, as_date},
                                       {u"date.parse", 1, 1, as_date},
                                       {u"cbool", 1, 1, as_boolean},
                                       {u"convert.toboolean", 1, 1, as_boolean},
                                       {u"boolean.parse", 1, 1, as_boolean},
                                       {u"cobj", 1, 1, as_it_is},
                                       {u"cchar", 1, 1, as_character},
                                       {u"val", 1, 1, leading},
                                       {u"str", 1, 1, str},
                                       {u"isnumeric", 1, 1, is_numeric},
                                       {u"isdate", 1, 1, is_date},
                                       {u"isarray", 1, 1, is_array},
                                       {u"isnothing", 1, 1, is_nothing},
                                       {u"isdbnull", 1, 1, is_nothing},
                                       {u"new cultureinfo", 1, 2, culture_name},
                                       {u"cultureinfo.createspecificculture", 1, 1, culture_name},
                                       {u"cultureinfo.getcultureinfo", 1, 1, culture_name},
                                       {u"me.value", 0, 0, own_value}};

} // namespace

std::span<const NamedFunction> conversions() { return functions; }

} // namespace tolvex::printing
