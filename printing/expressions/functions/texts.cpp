#include "printing/expressions/functions/texts.hpp"

#include "core/code_pages.hpp"
#include "core/errors.hpp"
#include "printing/expressions/functions/table.hpp"
#include "printing/expressions/lengths.hpp"
#include "printing/expressions/text_order.hpp"

#include <algorithm>

namespace tolvex::printing {

bool is_space(char16_t c)
{
    return c == u' ' || (c >= 9 && c <= 13) || c == 0x85 || c == 0xA0 || c == 0x202F;
}

Text trimmed(TextView text, bool (*unwanted)(char16_t), bool at_start, bool at_end)
{
    while (at_start && !text.empty() && unwanted(text.front())) text.remove_prefix(1);
    while (at_end && !text.empty() && unwanted(text.back())) text.remove_suffix(1);
    return Text(text);
}

Text trimmed(TextView text, TextView unwanted, bool at_start, bool at_end)
{
    if (at_start) text.remove_prefix(std::min(text.find_first_not_of(unwanted), text.size()));
    if (at_end) text = text.substr(0, text.find_last_not_of(unwanted) + 1);
    return Text(text);
}

std::size_t find_text(TextView text, TextView what, std::size_t from, bool ignoring_case)
{
    if (!ignoring_case) return text.find(what, from);
    return upper_case(text).find(upper_case(what), from);
}

Variant::List parts_of(TextView text, TextView separator, std::int64_t limit, bool ignoring_case)
{
    Variant::List parts;
    const Text folded = ignoring_case ? upper_case(text) : Text(text);
    const Text wanted = ignoring_case ? upper_case(separator) : Text(separator);
    std::size_t from = 0;
    while (!wanted.empty() && (limit < 0 || static_cast<std::int64_t>(parts.size()) + 1 < limit)) {
        const std::size_t found = folded.find(wanted, from);
        if (found == Text::npos) break;
        parts.emplace_back(Text(text.substr(from, found - from)));
        from = found + wanted.size();
    }
    parts.emplace_back(Text(text.substr(from)));
    return parts;
}

Text replaced(TextView text, TextView what, TextView with, std::int64_t limit, bool ignoring_case)
{
    const Text folded = ignoring_case ? upper_case(text) : Text(text);
    const Text wanted = ignoring_case ? upper_case(what) : Text(what);
    Text result;
    std::size_t from = 0;
    for (std::int64_t count = 0; !wanted.empty() && (limit < 0 || count < limit); ++count) {
        const std::size_t found = folded.find(wanted, from);
        if (found == Text::npos) break;
        result += text.substr(from, found - from);
        result += with;
        require_length(result.size());
        from = found + wanted.size();
    }
    require_length(result.size() + text.size() - from);
    return result += text.substr(from);
}

Text padded_left(const Text& text, std::size_t width, char16_t with)
{
    require_length(width);
    return Text(width > text.size() ? width - text.size() : 0, with) + text;
}

Text padded_right(const Text& text, std::size_t width, char16_t with)
{
    require_length(width);
    return text + Text(width > text.size() ? width - text.size() : 0, with);
}

Text part(TextView text, std::size_t from, std::size_t length)
{
    return Text(text.substr(std::min(from, text.size()), length));
}

namespace {

bool is_blank(char16_t c) { return c == u' ' || c == 0x3000; }

Variant trim_text(const Arguments& given) { return trimmed(given.text(0), is_blank, true, true); }
Variant ltrim(const Arguments& given) { return trimmed(given.text(0), is_blank, true, false); }
Variant rtrim(const Arguments& given) { return trimmed(given.text(0), is_blank, false, true); }
Variant ucase(const Arguments& given) { return upper_case(given.text(0)); }
Variant lcase(const Arguments& given) { return lower_case(given.text(0)); }

Variant left(const Arguments& given) { return clip(given.text(0), given.length(1)); }

Variant right(const Arguments& given)
{
    const Text text = given.text(0);
    return part(text, text.size() - std::min(given.length(1), text.size()));
}

Variant mid(const Arguments& given)
{
    const std::size_t start = given.length(1);
    if (start == 0) throw invalid_call();
    return part(given.text(0), start - 1, given.has(2) ? given.length(2) : Text::npos);
}

Variant len(const Arguments& given)
{
    if (const auto* list = given[0].get_if<Variant::List>()) return static_cast<std::int64_t>(list->size());
    return static_cast<std::int64_t>(given.text(0).size());
}

bool ignores_case(const Arguments& given, std::size_t compare_method)
{
    return given.whole(compare_method, 0) == 1;
}

// Replace(text, what, with, start, count, compare): what stands before the start is left out.
Variant replace(const Arguments& given)
{
    const std::int64_t start = given.whole(3, 1);
    if (start < 1) throw invalid_call();
    return replaced(part(given.text(0), static_cast<std::size_t>(start) - 1), given.text(1), given.text(2),
                    given.whole(4, -1), ignores_case(given, 5));
}

std::int64_t place_from_one(std::size_t found)
{
    return found == Text::npos ? 0 : static_cast<std::int64_t>(found) + 1;
}

// InStr(text, what, compare) or, where a number comes first, InStr(start, text, what, compare).
Variant in_str(const Arguments& given)
{
    const bool has_start = given.size() > 2 && !given[0].get_if<Text>() && !given[0].is_nothing();
    const std::size_t first = has_start ? 1 : 0;
    const std::size_t start = has_start ? given.length(0) : 1;
    if (start == 0) throw invalid_call();
    return place_from_one(
        find_text(given.text(first), given.text(first + 1), start - 1, ignores_case(given, first + 2)));
}

// InStrRev(text, what, start, compare)
Variant in_str_rev(const Arguments& given)
{
    Text text = given.text(0), what = given.text(1);
    const std::int64_t start = given.whole(2, -1);
    if (start == 0 || start < -1) throw invalid_call();
    if (start > 0) text = clip(text, static_cast<std::size_t>(start));
    if (ignores_case(given, 3)) {
        text = upper_case(text);
        what = upper_case(what);
    }
    return place_from_one(text.rfind(what));
}

// Every word begins with a capital letter.
Text proper_case(TextView text)
{
    Text result = lower_case(text);
    bool in_word = false;
    for (char16_t& c : result) {
        if (!in_word) c = upper_case(TextView(&c, 1)).front();
        in_word = !is_space(c) && TextView(u"-.,;:()/\"¿¡").find(c) == TextView::npos;
    }
    return result;
}

Variant str_conv(const Arguments& given)
{
    switch (given.whole(1)) {
    case 1:
        return upper_case(given.text(0));
    case 2:
        return lower_case(given.text(0));
    case 3:
        return proper_case(given.text(0));
    default:
        return given.text(0);
    }
}

Variant str_reverse(const Arguments& given)
{
    Text text = given.text(0);
    std::reverse(text.begin(), text.end());
    return text;
}

Variant str_comp(const Arguments& given)
{
    const Text a = given.text(0), b = given.text(1);
    if (ignores_case(given, 2)) return compare_letters(a, b);
    return a < b ? -1 : (b < a ? 1 : 0);
}

Variant split_text(const Arguments& given)
{
    return parts_of(given.text(0), given.has(1) ? given.text(1) : u" ", given.whole(2, -1),
                    ignores_case(given, 3));
}

std::vector<Text> texts_in(const Variant& value, const Culture& culture)
{
    const auto* list = value.get_if<Variant::List>();
    if (!list) return {formatted(value, {}, culture)};
    std::vector<Text> texts;
    for (const Variant& each : *list) texts.push_back(formatted(each, {}, culture));
    return texts;
}

Text joined(const std::vector<Text>& parts, TextView separator)
{
    std::size_t length = parts.size() * separator.size();
    for (const Text& each : parts) length += each.size();
    require_length(length);
    return join(parts, separator);
}

// A parameter of one value is joined to that value.
Variant join_list(const Arguments& given)
{
    return joined(texts_in(given[0], given.culture()), given.has(1) ? given.text(1) : u" ");
}

// String.Join(separator, list) or String.Join(separator, a, b, …)
Variant string_join(const Arguments& given)
{
    std::vector<Text> parts;
    for (std::size_t i = 1; i < given.size(); ++i)
        for (Text& each : texts_in(given[i], given.culture())) parts.push_back(std::move(each));
    return joined(parts, given.text(0));
}

Variant concat(const Arguments& given)
{
    std::vector<Text> parts;
    for (const Variant& value : given.values())
        for (Text& each : texts_in(value, given.culture())) parts.push_back(std::move(each));
    return joined(parts, {});
}

// Filter(list, text, whether those with it or those without it are kept, compare)
Variant filter(const Arguments& given)
{
    const bool kept = !given.has(2) || given[2].boolean();
    Variant::List result;
    for (Text& each : texts_in(given[0], given.culture()))
        if ((find_text(each, given.text(1), 0, ignores_case(given, 3)) != Text::npos) == kept)
            result.emplace_back(std::move(each));
    return result;
}

Variant chr(const Arguments& given)
{
    const std::int64_t code = given.whole(0);
    if (code < 0 || code > 255) throw invalid_call();
    return from_windows_1252(std::string(1, static_cast<char>(code)));
}

Variant chr_w(const Arguments& given)
{
    const std::int64_t code = given.whole(0);
    if (code < 0 || code > 0xFFFF) throw invalid_call();
    return Text(1, static_cast<char16_t>(code));
}

char16_t first_character(const Arguments& given)
{
    const Text text = given.text(0);
    if (text.empty()) throw invalid_call();
    return text.front();
}

Variant asc(const Arguments& given)
{
    return static_cast<unsigned char>(to_windows_1252(Text(1, first_character(given))).front());
}

Variant asc_w(const Arguments& given) { return static_cast<int>(first_character(given)); }

Text repeated(std::size_t count, char16_t c)
{
    require_length(count);
    return Text(count, c);
}

Variant space(const Arguments& given) { return repeated(given.length(0), u' '); }

// StrDup(count, text) repeats the text's first character.
Variant str_dup(const Arguments& given)
{
    const Text text = given.text(1);
    if (text.empty()) throw invalid_call();
    return repeated(given.length(0), text.front());
}

Variant lset(const Arguments& given)
{
    return clip(padded_right(given.text(0), given.length(1), u' '), given.length(1));
}
Variant rset(const Arguments& given)
{
    return clip(padded_left(given.text(0), given.length(1), u' '), given.length(1));
}

Variant get_char(const Arguments& given)
{
    const Text text = given.text(0);
    const std::size_t place = given.length(1);
    if (place < 1 || place > text.size()) throw invalid_call();
    return Text(1, text[place - 1]);
}

Variant is_null_or_empty(const Arguments& given) { return given.text(0).empty(); }

Variant is_null_or_white_space(const Arguments& given)
{
    return trimmed(given.text(0), is_space, true, true).empty();
}

constexpr NamedFunction functions[] = {{u"trim", 1, 1, trim_text},
                                       {u"ltrim", 1, 1, ltrim},
                                       {u"rtrim", 1, 1, rtrim},
                                       {u"ucase", 1, 1, ucase},
                                       {u"lcase", 1, 1, lcase},
                                       {u"left", 2, 2, left},
                                       {u"right", 2, 2, right},
                                       {u"mid", 2, 3, mid},
                                       {u"len", 1, 1, len},
                                       {u"replace", 3, 6, replace},
                                       {u"instr", 2, 4, in_str},
                                       {u"instrrev", 2, 4, in_str_rev},
                                       {u"strconv", 2, 3, str_conv},
                                       {u"strreverse", 1, 1, str_reverse},
                                       {u"strcomp", 2, 3, str_comp},
                                       {u"string.compare", 2, 2, str_comp},
                                       {u"split", 1, 4, split_text},
                                       {u"join", 1, 2, join_list},
                                       {u"string.join", 2, any_number, string_join},
                                       {u"string.concat", 1, any_number, concat},
                                       {u"filter", 2, 4, filter},
                                       {u"chr", 1, 1, chr},
                                       {u"chrw", 1, 1, chr_w},
                                       {u"asc", 1, 1, asc},
                                       {u"ascw", 1, 1, asc_w},
                                       {u"space", 1, 1, space},
                                       {u"strdup", 2, 2, str_dup},
                                       {u"lset", 2, 2, lset},
                                       {u"rset", 2, 2, rset},
                                       {u"getchar", 2, 2, get_char},
                                       {u"string.isnullorempty", 1, 1, is_null_or_empty},
                                       {u"string.isnullorwhitespace", 1, 1, is_null_or_white_space}};

} // namespace

std::span<const NamedFunction> text_functions() { return functions; }

} // namespace tolvex::printing
