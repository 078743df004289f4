#include "database/odbc/named_values.hpp"

#include "core/text.hpp"
#include "database/literal.hpp"

namespace tolvex::odbc {

namespace {

struct ServerType
{
    const char16_t* operator()(Null) const { return u"nvarchar(1)"; }
    const char16_t* operator()(bool) const { return u"bit"; }
    const char16_t* operator()(std::int64_t) const { return u"bigint"; }
    const char16_t* operator()(double) const { return u"float"; }
    const char16_t* operator()(Currency) const { return u"money"; }
    const char16_t* operator()(Date) const { return u"datetime"; }
    const char16_t* operator()(const Text&) const { return u"nvarchar(max)"; }
    const char16_t* operator()(const Bytes&) const { return u"varbinary(max)"; }
};

Text assignments(const std::vector<NamedValue>& parameters)
{
    std::vector<Text> all;
    for (const NamedValue& each : parameters) all.push_back(u"@" + each.name + u" = ?");
    return join(all, u", ");
}

} // namespace

Text with_named_values(const Text& sql, const std::vector<NamedValue>& parameters)
{
    std::vector<Text> declarations;
    for (const NamedValue& each : parameters)
        declarations.push_back(u"@" + each.name + u" " + each.value.visit(ServerType{}));
    return u"exec sp_executesql N" + literal(sql) + u", N" + literal(join(declarations, u", ")) + u", " +
           assignments(parameters);
}

Text call_with_named_values(const Text& procedure, const std::vector<NamedValue>& parameters)
{
    return u"exec " + procedure + u" " + assignments(parameters);
}

std::vector<Value> values_of(const std::vector<NamedValue>& parameters)
{
    std::vector<Value> values;
    for (const NamedValue& each : parameters) values.push_back(each.value);
    return values;
}

} // namespace tolvex::odbc
