#include "flat_file/record.hpp"

#include "core/dates.hpp"
#include "core/errors.hpp"
#include "core/numbers.hpp"
#include "core/text.hpp"

namespace tolvex {

namespace {

template <class Integer, Integer (*Convert)(double)>
Integer whole_number(const Text& text)
{
    const double number = to_number(text);
    if (number != round_half_even(number, 0)) throw type_mismatch();
    return Convert(number);
}

} // namespace

Error wrong(const Text& reason) { return invalid_call(reason); }

Record::Record(const Text& line) : fields_(split(line, u'|')) {}

Text Record::name() const { return upper_case(trim(fields_[0])); }

void Record::expect_values(std::size_t least, std::size_t most) const
{
    const std::size_t count = fields_.size() - 1;
    if (count >= least && count <= most) return;
    const Text expected = decimal(least) + (least == most ? u"" : u" a " + decimal(most));
    throw wrong(name() + u" lleva " + expected + u" valores y trae " + decimal(count));
}

bool Record::has(std::size_t i) const { return i < fields_.size() && !fields_[i].empty(); }

Error Record::wrong_value(std::size_t i, const char16_t* value_name, const Text& expected) const
{
    return wrong(u"el valor " + decimal(i) + u" de " + name() + u" (" + value_name + u") no es " + expected +
                 u": \"" + text(i) + u"\"");
}

template <class Convert>
auto Record::converted(std::size_t i, const char16_t* value_name, const Text& expected, Convert convert) const
{
    try {
        return convert(text(i));
    } catch (const Error&) {
        throw wrong_value(i, value_name, expected);
    }
}

Text Record::text(std::size_t i, const Text& otherwise) const { return has(i) ? fields_[i] : otherwise; }

std::int16_t Record::int16(std::size_t i, const char16_t* value_name) const
{
    return converted(i, value_name, u"un número entero de -32768 a 32767",
                     whole_number<std::int16_t, to_int16>);
}

std::int32_t Record::int32(std::size_t i, const char16_t* value_name) const
{
    return converted(i, value_name, u"un número entero", whole_number<std::int32_t, to_int32>);
}

Currency Record::amount(std::size_t i, const char16_t* value_name) const
{
    return converted(i, value_name, u"un importe", to_currency);
}

Currency Record::amount(std::size_t i, const char16_t* value_name, Currency otherwise) const
{
    return has(i) ? amount(i, value_name) : otherwise;
}

Text Record::amount_text(std::size_t i, const char16_t* value_name) const
{
    amount(i, value_name);
    return trim(fields_[i]);
}

Date Record::date(std::size_t i, const char16_t* value_name) const
{
    return converted(i, value_name, u"una fecha aaaa-mm-dd hh:mm:ss", to_date);
}

bool Record::boolean(std::size_t i, const char16_t* value_name, bool otherwise) const
{
    if (!has(i)) return otherwise;
    const Text value = trim(fields_[i]);
    if (value != u"0" && value != u"1") throw wrong_value(i, value_name, u"0 o 1");
    return value == u"1";
}

} // namespace tolvex
