#include "flat_file/value_check.hpp"

#include "core/errors.hpp"
#include "core/numbers.hpp"
#include "core/text.hpp"
#include "flat_file/plain_text.hpp"
#include "platform/batch_runner.hpp"
#include "platform/files.hpp"

#include <cstdio>

namespace tolvex {

namespace {

constexpr char16_t first_unsealable = 0x800;

bool is_control(char16_t c) { return c < u' ' || (c >= 0x7F && c < 0xA0); }

bool is_second_half(char16_t c) { return c >= 0xDC00 && c < 0xE000; }

Text code_of(TextView value, std::size_t place)
{
    unsigned code = value[place];
    if (code >= 0xD800 && code < 0xDC00 && place + 1 < value.size())
        code = 0x10000 + ((code - 0xD800) << 10) + (value[place + 1] - 0xDC00u);
    char digits[12];
    std::snprintf(digits, sizeof digits, "U+%04X", code);
    return to_text(digits);
}

Text shown(TextView value, std::size_t place)
{
    const bool takes_two = place + 1 < value.size() && is_second_half(value[place + 1]);
    return u"«" + Text(value.substr(place, takes_two ? 2 : 1)) + u"» (" + code_of(value, place) + u")";
}

// What keeps the character out of a document, and what to do; empty when nothing does.
Text objection(Kind kind, TextView value, std::size_t place)
{
    const char16_t c = value[place];
    if (is_control(c)) return u"un carácter de control (" + code_of(value, place) + u")%: quítelo";
    if (kind != Kind::text) return {};
    if (c == u'\'') return u"un apóstrofo%, que dejaría el documento a medias: escriba «´» o quítelo";
    if (c < first_unsealable || is_second_half(c)) return {};
    const TextView instead = plain_form(c);
    const Text advice =
        instead.empty() ? Text(u"quítelo o escriba otro") : u"escriba «" + Text(instead) + u"»";
    return shown(value, place) + u"%, con el que el sello no se puede comprobar: " + advice;
}

void check_characters(const Record& record, std::size_t i, Kind kind, std::vector<Text>& faults)
{
    const Text value = record.text(i);
    for (std::size_t place = 0; place < value.size(); ++place) {
        const Text reason = objection(kind, value, place);
        if (reason.empty()) continue;
        const Text where = u" en la letra " + decimal(static_cast<std::int64_t>(place) + 1);
        faults.push_back(record.value_in_words(i) + u" lleva " + replace_all(reason, u"%", where));
    }
}

// The tax authority's check takes them out of the XML's values before it looks at the seal.
bool has_needless_blanks(const Text& value)
{
    return value.starts_with(u' ') || value.ends_with(u' ') || value.find(u"  ") != Text::npos;
}

// An empty one stands for the flat file's own folder.
void check_folder(const Record& record, std::size_t i)
{
    const Text folder = record.text(i);
    if (folder.empty()) return;
    require_batch_folder(folder);
    if (!files::folder_exists(folder))
        throw wrong(record.value_in_words(i) + u" no es una carpeta que exista: \"" + folder + u"\"");
}

// Throws when the value is none of its kind.
void read_value(const Record& record, std::size_t i, Kind kind)
{
    switch (kind) {
    case Kind::text:
    case Kind::addenda_text:
        return;
    case Kind::folder:
        return check_folder(record, i);
    case Kind::int16:
        return static_cast<void>(record.int16(i));
    case Kind::int32:
        return static_cast<void>(record.int32(i));
    case Kind::amount:
        return static_cast<void>(record.amount(i));
    case Kind::date:
        return static_cast<void>(record.date(i));
    case Kind::boolean:
        return static_cast<void>(record.boolean(i, false));
    case Kind::document_kind:
        return static_cast<void>(record.document_kind(i));
    }
}

void check_value(const Record& record, std::size_t i, std::vector<Text>& faults)
{
    const Field& field = record.layout().fields[i - 1];
    if (field.may_be_empty && record.text(i).empty()) return;
    if (i > record.layout().least && record.text(i).empty()) return; // left out at the end
    try {
        read_value(record, i, field.kind);
        check_characters(record, i, field.kind, faults);
    } catch (const Error& error) {
        faults.push_back(error.description());
    }
}

} // namespace

std::vector<Text> faults_of_values(const Record& record)
{
    std::vector<Text> faults;
    for (std::size_t i = 1; i <= record.layout().fields.size(); ++i) check_value(record, i, faults);
    return faults;
}

std::vector<Text> oddities_of_values(const Record& record)
{
    std::vector<Text> oddities;
    for (std::size_t i = 1; i <= record.layout().fields.size(); ++i) {
        const Text value = record.text(i);
        const Field& field = record.layout().fields[i - 1];
        if (field.kind == Kind::text && !field.may_be_empty && value.empty())
            oddities.push_back(record.value_in_words(i) + u" va vacío, y la autoridad lo pide");
        if (field.kind == Kind::text && has_needless_blanks(value))
            oddities.push_back(record.value_in_words(i) +
                               u" lleva blancos de más, con los que el sello no se puede comprobar");
        if (value.size() > 1 && value.front() == u'"' && value.back() == u'"')
            oddities.push_back(
                record.value_in_words(i) +
                u" va entre comillas, como las ponen las hojas de cálculo: se emite con ellas");
    }
    return oddities;
}

} // namespace tolvex
