#include "core/errors.hpp"
#include "printing/expressions/arithmetic.hpp"
#include "printing/expressions/functions/table.hpp"
#include "printing/expressions/functions/texts.hpp"
#include "printing/expressions/lengths.hpp"

#include <algorithm>

namespace tolvex::printing {

namespace {

// The characters that a trimming method is told: a text, or a list of characters.
template <bool at_start, bool at_end>
Variant trim_ends(const Arguments& given)
{
    if (!given.has(1)) return trimmed(given.text(0), is_space, at_start, at_end);
    const auto* list = given[1].get_if<Variant::List>();
    Text unwanted;
    for (const Variant& each : list ? std::span<const Variant>(*list) : given.values().subspan(1))
        require_length((unwanted += formatted(each, {}, given.culture())).size());
    return trimmed(given.text(0), unwanted, at_start, at_end);
}

std::size_t place_in(const Text& text, const Arguments& given, std::size_t i)
{
    const std::size_t place = given.length(i);
    if (place > text.size()) throw invalid_call();
    return place;
}

// How far a method reaches from a place; to the end where it is not told. Throws Error 5 beyond the end.
std::size_t reach(const Text& text, std::size_t from, const Arguments& given, std::size_t i)
{
    const std::size_t length = given.has(i) ? given.length(i) : text.size() - from;
    if (length > text.size() - from) throw invalid_call();
    return length;
}

Variant substring(const Arguments& given)
{
    const Text text = given.text(0);
    const std::size_t from = place_in(text, given, 1);
    return part(text, from, reach(text, from, given, 2));
}

Variant remove(const Arguments& given)
{
    Text text = given.text(0);
    const std::size_t from = place_in(text, given, 1);
    return text.erase(from, reach(text, from, given, 2));
}

Variant insert(const Arguments& given)
{
    const Text text = given.text(0);
    const std::size_t at = place_in(text, given, 1);
    const Text inserted = given.text(2);
    require_length(text.size() + inserted.size());
    return clip(text, at) + inserted + part(text, at);
}

Variant replace(const Arguments& given)
{
    return replaced(given.text(0), given.text(1), given.text(2), -1, false);
}
Variant to_upper(const Arguments& given) { return upper_case(given.text(0)); }
Variant to_lower(const Arguments& given) { return lower_case(given.text(0)); }

Variant length(const Arguments& given)
{
    if (const auto* list = given[0].get_if<Variant::List>()) return static_cast<std::int64_t>(list->size());
    return static_cast<std::int64_t>(given.text(0).size());
}

Variant split_text(const Arguments& given)
{
    return parts_of(given.text(0), given.has(1) ? given.text(1) : u" ", -1, false);
}

Variant contains(const Arguments& given)
{
    if (const auto* list = given[0].get_if<Variant::List>())
        return std::find(list->begin(), list->end(), given[1]) != list->end();
    return given.text(0).find(given.text(1)) != Text::npos;
}

Variant starts_with(const Arguments& given) { return given.text(0).starts_with(given.text(1)); }
Variant ends_with(const Arguments& given) { return given.text(0).ends_with(given.text(1)); }

std::int64_t place_from_zero(std::size_t found)
{
    return found == Text::npos ? -1 : static_cast<std::int64_t>(found);
}

Variant index_of(const Arguments& given)
{
    const Text text = given.text(0);
    return place_from_zero(text.find(given.text(1), given.has(2) ? place_in(text, given, 2) : 0));
}

Variant last_index_of(const Arguments& given) { return place_from_zero(given.text(0).rfind(given.text(1))); }

char16_t filling(const Arguments& given)
{
    const Text text = given.text(2);
    return text.empty() ? u' ' : text.front();
}

Variant pad_left(const Arguments& given)
{
    return padded_left(given.text(0), given.length(1), filling(given));
}
Variant pad_right(const Arguments& given)
{
    return padded_right(given.text(0), given.length(1), filling(given));
}

constexpr NamedFunction of_texts[] = {{u"trim", 1, any_number, trim_ends<true, true>},
                                      {u"trimstart", 1, any_number, trim_ends<true, false>},
                                      {u"trimend", 1, any_number, trim_ends<false, true>},
                                      {u"substring", 2, 3, substring},
                                      {u"remove", 2, 3, remove},
                                      {u"insert", 3, 3, insert},
                                      {u"replace", 3, 3, replace},
                                      {u"toupper", 1, 1, to_upper},
                                      {u"toupperinvariant", 1, 1, to_upper},
                                      {u"tolower", 1, 1, to_lower},
                                      {u"tolowerinvariant", 1, 1, to_lower},
                                      {u"length", 1, 1, length},
                                      {u"count", 1, 1, length},
                                      {u"split", 1, 3, split_text},
                                      {u"contains", 2, 2, contains},
                                      {u"startswith", 2, 2, starts_with},
                                      {u"endswith", 2, 2, ends_with},
                                      {u"indexof", 2, 3, index_of},
                                      {u"lastindexof", 2, 2, last_index_of},
                                      {u"padleft", 2, 3, pad_left},
                                      {u"padright", 2, 3, pad_right}};

// .ToString(format, culture)
Variant to_string(const Arguments& given)
{
    const Culture& chosen = given.has(2) ? culture(given.text(2)) : given.culture();
    return formatted(given[0], given.text(1), chosen);
}

// A text serves as the list of its characters wherever one is taken.
Variant value(const Arguments& given) { return given[0]; }
Variant has_value(const Arguments& given) { return !given[0].is_nothing(); }

Variant equals(const Arguments& given)
{
    if (given[0].get_if<Text>() || given[1].get_if<Text>()) return given.text(0) == given.text(1);
    return compare(given[0], given[1]) == 0;
}

Variant compare_to(const Arguments& given) { return compare(given[0], given[1]); }

constexpr NamedFunction of_any_value[] = {{u"tostring", 1, 3, to_string}, {u"value", 1, 1, value},
                                          {u"tochararray", 1, 1, value},  {u"hasvalue", 1, 1, has_value},
                                          {u"getvalue", 2, 2, element},   {u"getvalueordefault", 1, 1, value},
                                          {u"equals", 2, 2, equals},      {u"compareto", 2, 2, compare_to},
                                          {u"item", 2, 2, element},       {u"chars", 2, 2, element}};

} // namespace

std::span<const NamedFunction> text_members() { return of_texts; }

std::span<const NamedFunction> other_members() { return of_any_value; }

Variant element(const Arguments& given)
{
    const std::int64_t index = given.whole(1);
    const auto* list = given[0].get_if<Variant::List>();
    const Text text = list ? Text() : given.text(0);
    const std::size_t size = list ? list->size() : text.size();
    if (index < 0 || index >= static_cast<std::int64_t>(size))
        throw Error(9, u"El subíndice está fuera del intervalo");
    return list ? (*list)[static_cast<std::size_t>(index)]
                : Variant(Text(1, text[static_cast<std::size_t>(index)]));
}

} // namespace tolvex::printing
