#include "core/errors.hpp"
#include "printing/expressions/arithmetic.hpp"
#include "printing/expressions/formats/date_formats.hpp"
#include "printing/expressions/formats/number_formats.hpp"

namespace tolvex::printing {

constexpr std::size_t longest_format = 1000;

Text formatted(const Variant& value, TextView format, const Culture& culture)
{
    if (format.size() > longest_format) throw invalid_call(u"El formato es demasiado largo");
    if (const Text* text = value.get_if<Text>()) return *text;
    if (is_number(value)) return format_number(value, format, culture);
    if (const Date* date = value.get_if<Date>()) return format_date(*date, format, culture);
    if (const bool* truth = value.get_if<bool>()) return *truth ? u"True" : u"False";
    if (value.is_nothing()) return {};
    throw type_mismatch();
}

} // namespace tolvex::printing
