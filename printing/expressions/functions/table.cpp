#include "printing/expressions/functions/table.hpp"

#include "core/errors.hpp"
#include "printing/expressions/date_reader.hpp"
#include "printing/expressions/expression.hpp"

#include <unordered_map>

namespace tolvex::printing {

namespace {

using Table = std::unordered_map<Text, const NamedFunction*>;

Table table_of(std::initializer_list<std::span<const NamedFunction>> families)
{
    Table table;
    for (const auto family : families)
        for (const NamedFunction& each : family) table.emplace(each.key, &each);
    return table;
}

const NamedFunction* found_in(const Table& table, const Text& key)
{
    const auto found = table.find(key);
    return found == table.end() ? nullptr : found->second;
}

} // namespace

const Variant& Arguments::operator[](std::size_t i) const
{
    static const Variant nothing;
    return i < values_.size() ? values_[i] : nothing;
}

Text Arguments::text(std::size_t i) const { return formatted((*this)[i], {}, culture()); }

std::size_t Arguments::length(std::size_t i) const
{
    const std::int64_t value = whole(i);
    if (value < 0) throw invalid_call();
    return static_cast<std::size_t>(value);
}

Date Arguments::date(std::size_t i) const
{
    if (const Text* text = (*this)[i].get_if<Text>()) return read_date(*text, culture());
    return (*this)[i].date();
}

const Culture& Arguments::culture() const { return environment_.culture(); }

const NamedFunction* function_named(const Text& key)
{
    static const Table table = table_of({text_functions(), number_functions(), conversions(),
                                         date_functions(), format_functions(), encoding_functions()});
    return found_in(table, key);
}

const NamedFunction* member_named(const Text& key)
{
    static const Table table =
        table_of({text_members(), date_members(), encoding_members(), other_members()});
    return found_in(table, key);
}

} // namespace tolvex::printing
