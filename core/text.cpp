#include "core/text.hpp"

#include <algorithm>

namespace tolvex {

namespace {

char16_t to_upper(char16_t c)
{
    if ((c >= u'a' && c <= u'z') || (c >= 0xE0 && c <= 0xFE && c != 0xF7)) return c - 0x20;
    return c == 0xFF ? u'\u0178' : c;
}

char16_t to_lower(char16_t c)
{
    if ((c >= u'A' && c <= u'Z') || (c >= 0xC0 && c <= 0xDE && c != 0xD7)) return c + 0x20;
    return c == 0x0178 ? u'\u00FF' : c;
}

template <class Change>
Text each_changed(TextView text, Change change)
{
    Text changed(text);
    std::transform(changed.begin(), changed.end(), changed.begin(), change);
    return changed;
}

template <class Wanted>
Text filtered(TextView text, Wanted wanted)
{
    Text kept;
    kept.reserve(text.size());
    std::copy_if(text.begin(), text.end(), std::back_inserter(kept), wanted);
    return kept;
}

} // namespace

Text trim_right(TextView text)
{
    const auto last = text.find_last_not_of(u' ');
    return last == TextView::npos ? Text() : Text(text.substr(0, last + 1));
}

Text trim(TextView text)
{
    const auto first = text.find_first_not_of(u' ');
    return first == TextView::npos ? Text() : trim_right(text.substr(first));
}

Text upper_case(TextView text) { return each_changed(text, to_upper); }

Text lower_case(TextView text) { return each_changed(text, to_lower); }

bool equal_ignoring_case(TextView a, TextView b)
{
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](char16_t x, char16_t y) { return to_upper(x) == to_upper(y); });
}

bool starts_with_ignoring_case(TextView text, TextView prefix)
{
    return equal_ignoring_case(text.substr(0, prefix.size()), prefix);
}

Text clip(TextView text, std::size_t n) { return Text(text.substr(0, n)); }

Text replace_all(TextView text, TextView what, TextView with)
{
    Text replaced;
    for (;;) {
        const auto found = text.find(what);
        replaced += text.substr(0, found);
        if (found == TextView::npos) return replaced;
        replaced += with;
        text.remove_prefix(found + what.size());
    }
}

Text basic_literal(TextView text) { return u"\"" + replace_all(text, u"\"", u"\"\"") + u"\""; }

Text without(TextView text, char16_t unwanted)
{
    return filtered(text, [=](char16_t c) { return c != unwanted; });
}

Text keep_only(TextView text, TextView allowed)
{
    return filtered(text, [=](char16_t c) { return allowed.find(c) != TextView::npos; });
}

std::vector<Text> split(TextView text, char16_t separator)
{
    std::vector<Text> fields;
    for (;;) {
        const auto found = text.find(separator);
        fields.emplace_back(text.substr(0, found));
        if (found == TextView::npos) return fields;
        text.remove_prefix(found + 1);
    }
}

Text join(const std::vector<Text>& parts, TextView separator)
{
    Text whole;
    for (std::size_t i = 0; i < parts.size(); ++i) {
        if (i > 0) whole += separator;
        whole += parts[i];
    }
    return whole;
}

} // namespace tolvex
