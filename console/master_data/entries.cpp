#include "console/master_data/entries.hpp"

#include "console/master_data/keys.hpp"
#include "core/errors.hpp"
#include "core/numbers.hpp"

#include <algorithm>
#include <toml++/toml.h>

namespace tolvex::console {

namespace {

Error wrong_at(unsigned line, const Text& reason)
{
    return invalid_call(u"Línea " + decimal(line) + u": " + reason);
}

unsigned line_of(const toml::node& node) { return node.source().begin.line; }

// What a user would type for the value.
Text typed(const std::string& key, const toml::node& value)
{
    if (const auto* text = value.as_string()) return to_text(text->get());
    if (const auto* number = value.as_integer()) return decimal(number->get());
    if (const auto* flag = value.as_boolean()) return flag->get() ? u"1" : u"0";
    throw wrong_at(line_of(value),
                   u"«" + to_text(key) + u"» lleva un texto, un número entero, o true o false");
}

Entry read_entry(const toml::table& table, const std::vector<std::string>& known)
{
    Entry entry{line_of(table), {}};
    for (const auto& [name, value] : table) {
        const std::string key(name.str());
        if (value.is_array_of_tables()) continue;
        if (std::find(known.begin(), known.end(), key) == known.end())
            throw wrong_at(line_of(value), u"no se conoce «" + to_text(key) + u"»");
        entry.values[key] = typed(key, value);
    }
    return entry;
}

// The tables under a name; `known` are the keys that one may hold.
std::vector<Entry> read_entries_of(const toml::table& parent, const char* name,
                                   const std::vector<std::string>& known)
{
    std::vector<Entry> entries;
    const auto* tables = parent[name].as_array();
    if (!tables) return entries;
    for (const toml::node& node : *tables) {
        const auto* table = node.as_table();
        if (!table) throw wrong_at(line_of(node), u"se esperaba [[empresa." + to_text(name) + u"]]");
        entries.push_back(read_entry(*table, known));
    }
    return entries;
}

// Tables that nobody reads are a slip of the pen.
void refuse_unknown_tables(const toml::table& table, std::initializer_list<std::string_view> known)
{
    for (const auto& [name, value] : table)
        if ((value.is_table() || value.is_array()) &&
            std::find(known.begin(), known.end(), name.str()) == known.end())
            throw wrong_at(line_of(value), u"no se conoce la tabla «" + to_text(name.str()) + u"»");
}

CompanyEntry read_company(const toml::table& table)
{
    refuse_unknown_tables(table, {"certificado", "sucursal", "folios"});
    return {read_entry(table, company_keys()), read_entries_of(table, "certificado", certificate_keys()),
            read_entries_of(table, "sucursal", branch_keys()),
            read_entries_of(table, "folios", folio_keys())};
}

toml::table parse(std::string_view toml)
{
    try {
        return toml::parse(toml);
    } catch (const toml::parse_error& error) {
        throw wrong_at(error.source().begin.line, u"no es TOML: " + to_text(error.description()));
    }
}

} // namespace

const Text& Entry::required(const std::string& key) const
{
    const auto found = values.find(key);
    if (found == values.end()) throw wrong_at(line, u"falta «" + to_text(key) + u"»");
    return found->second;
}

std::vector<CompanyEntry> entries_in(std::string_view toml)
{
    const toml::table file = parse(toml);
    refuse_unknown_tables(file, {"empresa"});
    std::vector<CompanyEntry> companies;
    const auto* tables = file["empresa"].as_array();
    if (!tables || !tables->is_array_of_tables())
        throw invalid_call(u"el archivo no trae ninguna [[empresa]]");
    for (const toml::node& node : *tables) companies.push_back(read_company(*node.as_table()));
    return companies;
}

} // namespace tolvex::console
