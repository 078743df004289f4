#include "database/connection_keywords.hpp"

#include "core/text.hpp"

#include <algorithm>

namespace tolvex {

namespace {

// Length of the value in braces that the text begins with, up to the "}" that is not doubled; 0 for none.
std::size_t length_of_braces(TextView text)
{
    if (!text.starts_with(u'{')) return 0;
    for (std::size_t i = 1; i < text.size(); ++i) {
        if (text[i] != u'}') continue;
        if (i + 1 == text.size() || text[i + 1] != u'}') return i + 1;
        ++i;
    }
    return 0;
}

bool breaks_the_string(TextView value)
{
    const bool special = value.find(u';') != TextView::npos || value.starts_with(u'{');
    return special && length_of_braces(value) != value.size();
}

// "name=value" each; a ";" within braces ends none.
std::vector<Text> parts_of(TextView connection_string)
{
    const Text whole = with_password_in_braces(connection_string);
    std::vector<Text> parts(1);
    for (std::size_t i = 0; i < whole.size();) {
        Text& part = parts.back();
        const bool value_begins = !part.empty() && part.find(u'=') == part.size() - 1;
        const auto braces = value_begins ? length_of_braces(TextView(whole).substr(i)) : 0;
        const auto length = std::max<std::size_t>(braces, 1);
        if (whole[i] == u';')
            parts.emplace_back();
        else
            part += whole.substr(i, length);
        i += length;
    }
    return parts;
}

bool names(TextView part, TextView name)
{
    const auto equals = part.find(u'=');
    return equals != TextView::npos && equal_ignoring_case(trim(part.substr(0, equals)), name);
}

Text value_of(TextView part) { return trim(part.substr(part.find(u'=') + 1)); }

} // namespace

Text with_password_in_braces(TextView connection_string)
{
    const TextView before = u";pwd=", after = u";driver={SQL Server};server=";
    const auto found = connection_string.find(before), end = connection_string.rfind(after);
    const auto start = found + before.size();
    if (found == TextView::npos || end == TextView::npos || end < start) return Text(connection_string);
    const TextView password = connection_string.substr(start, end - start);
    if (!breaks_the_string(password)) return Text(connection_string);
    return Text(connection_string.substr(0, start)) + u"{" + replace_all(password, u"}", u"}}") + u"}" +
           Text(connection_string.substr(end));
}

Text keyword(TextView connection_string, TextView name)
{
    Text value;
    for (const Text& part : parts_of(connection_string))
        if (names(part, name)) value = value_of(part);
    return value;
}

bool has_keyword(TextView connection_string, TextView name)
{
    for (const Text& part : parts_of(connection_string))
        if (names(part, name)) return true;
    return false;
}

Text with_keyword(TextView connection_string, TextView name, TextView value)
{
    Text whole;
    for (const Text& part : parts_of(connection_string)) {
        if (!whole.empty()) whole += u';';
        whole += names(part, name) ? Text(name) + u"=" + Text(value) : part;
    }
    return whole;
}

Text without_keyword(TextView connection_string, TextView name)
{
    std::vector<Text> parts = parts_of(connection_string);
    std::erase_if(parts, [&](const Text& part) { return names(part, name); });
    return join(parts, u";");
}

bool asks_for_embedded(TextView connection_string)
{
    return equal_ignoring_case(keyword(connection_string, u"server"), u"sqlite:");
}

} // namespace tolvex
