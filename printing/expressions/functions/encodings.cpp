// Texts as bytes and back: System.Text.Encoding. Layouts use it to read an original string, which is stored
// as the bytes that were sealed, one character each.
#include "core/code_pages.hpp"
#include "core/errors.hpp"
#include "printing/expressions/functions/table.hpp"

namespace tolvex::printing {

namespace {

constexpr TextView utf8 = u"utf-8", latin1 = u"iso-8859-1";

Variant encoding(const Arguments& given)
{
    const Text name = lower_case(given.text(0));
    if (name == utf8 || name == u"65001") return Text(utf8);
    if (name == latin1 || name == u"28591") return Text(latin1);
    throw invalid_call(u"Codificación desconocida: " + name);
}

Bytes latin1_bytes(Text text)
{
    for (char16_t& c : text)
        if (c > 0xFF) c = u'?';
    return {bytes_of_text(text)};
}

const std::string& data(const Variant& value)
{
    const auto* bytes = value.get_if<Bytes>();
    if (!bytes) throw type_mismatch();
    return bytes->data;
}

// ENCODING.GetBytes(text)
Variant get_bytes(const Arguments& given)
{
    return given.text(0) == latin1 ? latin1_bytes(given.text(1)) : Bytes{to_utf8(given.text(1))};
}

Variant get_string(const Arguments& given)
{
    return given.text(0) == latin1 ? text_of_bytes(data(given[1])) : to_text(data(given[1]));
}

Variant utf8_encoding(const Arguments&) { return Text(utf8); }

constexpr NamedFunction functions[] = {{u"encoding.getencoding", 1, 1, encoding},
                                       {u"encoding.utf8", 0, 0, utf8_encoding}};
constexpr NamedFunction members[] = {{u"getbytes", 2, 2, get_bytes}, {u"getstring", 2, 2, get_string}};

} // namespace

std::span<const NamedFunction> encoding_functions() { return functions; }

std::span<const NamedFunction> encoding_members() { return members; }

} // namespace tolvex::printing
