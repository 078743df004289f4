#include "core/errors.hpp"
#include "printing/expressions/formats/date_formats.hpp"
#include "printing/expressions/formats/number_formats.hpp"

namespace tolvex::printing {

namespace {

bool is_number(const Variant& value)
{
    return value.get_if<std::int64_t>() || value.get_if<double>() || value.get_if<Currency>();
}

} // namespace

Text formatted(const Variant& value, TextView format, const Culture& culture)
{
    if (const Text* text = value.get_if<Text>()) return *text;
    if (is_number(value)) return format_number(value, format, culture);
    if (const Date* date = value.get_if<Date>()) return format_date(*date, format, culture);
    if (const bool* truth = value.get_if<bool>()) return *truth ? u"True" : u"False";
    if (value.is_nothing()) return {};
    throw type_mismatch();
}

} // namespace tolvex::printing
