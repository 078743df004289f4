#include "database/connection_keywords.hpp"

#include "core/text.hpp"

namespace tolvex {

namespace {

bool names(TextView part, TextView name)
{
    const auto equals = part.find(u'=');
    return equals != TextView::npos && equal_ignoring_case(trim(part.substr(0, equals)), name);
}

Text value_of(TextView part) { return trim(part.substr(part.find(u'=') + 1)); }

} // namespace

Text keyword(TextView connection_string, TextView name)
{
    Text value;
    for (const Text& part : split(connection_string, u';'))
        if (names(part, name)) value = value_of(part);
    return value;
}

bool has_keyword(TextView connection_string, TextView name)
{
    for (const Text& part : split(connection_string, u';'))
        if (names(part, name)) return true;
    return false;
}

Text with_keyword(TextView connection_string, TextView name, TextView value)
{
    Text whole;
    for (const Text& part : split(connection_string, u';')) {
        if (!whole.empty()) whole += u';';
        whole += names(part, name) ? Text(name) + u"=" + Text(value) : part;
    }
    return whole;
}

bool asks_for_embedded(TextView connection_string)
{
    return equal_ignoring_case(keyword(connection_string, u"server"), u"sqlite:");
}

} // namespace tolvex
