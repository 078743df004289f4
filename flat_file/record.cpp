#include "flat_file/record.hpp"

#include "core/dates.hpp"
#include "core/errors.hpp"
#include "core/numbers.hpp"
#include "core/text.hpp"
#include "flat_file/plain_text.hpp"

namespace tolvex {

namespace {

template <class Integer, Integer (*Convert)(double)>
Integer whole_number(const Text& text)
{
    const double number = to_number(text);
    if (number != round_half_even(number, 0)) throw type_mismatch();
    return Convert(number);
}

Error unknown_record(const Text& name)
{
    const auto other_separator = name.find_first_of(u";\t,");
    if (other_separator == Text::npos) return wrong(u"no se conoce el registro \"" + name + u"\"");
    const Text given =
        name[other_separator] == u'\t' ? Text(u"tabuladores") : u"«" + Text(1, name[other_separator]) + u"»";
    return wrong(u"los valores van separados por «|», y aquí por " + given);
}

const RecordLayout& known_layout(const Text& given)
{
    const Text name = upper_case(trim(given));
    const RecordLayout* layout = layout_of(name);
    if (!layout) throw unknown_record(clip(name, 40));
    return *layout;
}

void expect_values(const RecordLayout& layout, std::size_t count)
{
    const std::size_t most = layout.fields.size();
    if (count >= layout.least && count <= most) return;
    const Text expected = decimal(layout.least) + (layout.least == most ? u"" : u" a " + decimal(most));
    throw wrong(Text(layout.name) + u" lleva " + expected + u" valores y trae " + decimal(count));
}

} // namespace

Error wrong(const Text& reason) { return invalid_call(reason); }

Record::Record(const Text& line) : fields_(split(line, u'|')), layout_(known_layout(fields_[0]))
{
    // Spreadsheets make all their rows of one length.
    while (fields_.size() - 1 > layout_.fields.size() && trim(fields_.back()).empty()) fields_.pop_back();
    expect_values(layout_, fields_.size() - 1);
}

bool Record::has(std::size_t i) const { return i < fields_.size() && !fields_[i].empty(); }

Text Record::value_in_words(std::size_t i) const
{
    return u"el valor " + decimal(i) + u" de " + Text(layout_.name) + u" (" +
           Text(layout_.fields[i - 1].name) + u")";
}

Error Record::wrong_value(std::size_t i, const Text& expected) const
{
    return wrong(value_in_words(i) + u" no es " + expected + u": \"" + text(i) + u"\"");
}

template <class Convert>
auto Record::converted(std::size_t i, const Text& expected, Convert convert) const
{
    try {
        return convert(text(i));
    } catch (const Error&) {
        throw wrong_value(i, expected);
    }
}

Text Record::text(std::size_t i, const Text& otherwise) const { return has(i) ? fields_[i] : otherwise; }

std::int16_t Record::int16(std::size_t i) const
{
    return converted(i, u"un número entero de -32768 a 32767", whole_number<std::int16_t, to_int16>);
}

std::int16_t Record::int16(std::size_t i, std::int16_t otherwise) const
{
    return has(i) ? int16(i) : otherwise;
}

std::int32_t Record::int32(std::size_t i) const
{
    return converted(i, u"un número entero", whole_number<std::int32_t, to_int32>);
}

Currency Record::amount(std::size_t i) const { return converted(i, u"un importe", to_currency); }

Currency Record::amount(std::size_t i, Currency otherwise) const { return has(i) ? amount(i) : otherwise; }

Text Record::amount_text(std::size_t i) const
{
    amount(i);
    return trim(fields_[i]);
}

Date Record::date(std::size_t i) const { return converted(i, u"una fecha aaaa-mm-dd hh:mm:ss", to_date); }

bool Record::boolean(std::size_t i, bool otherwise) const
{
    if (!has(i)) return otherwise;
    const Text value = trim(fields_[i]);
    if (value != u"0" && value != u"1") throw wrong_value(i, u"0 o 1");
    return value == u"1";
}

Text Record::document_kind(std::size_t i) const
{
    const Text kind = lower_case(trim(text(i)));
    if (kind.empty()) return u"ingreso";
    if (kind != u"ingreso" && kind != u"egreso") throw wrong_value(i, u"«ingreso» ni «egreso»");
    return kind;
}

std::vector<std::size_t> Record::make_plain()
{
    std::vector<std::size_t> changed;
    for (std::size_t i = 1; i < fields_.size(); ++i) {
        const Text plain = plain_text(fields_[i]);
        if (plain != fields_[i]) changed.push_back(i);
        fields_[i] = plain;
    }
    return changed;
}

} // namespace tolvex
