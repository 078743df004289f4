#include "core/errors.hpp"
#include "printing/expressions/call.hpp"
#include "printing/expressions/forms.hpp"
#include "printing/expressions/names.hpp"

namespace tolvex::printing {

namespace {

// A node over parts of which some are evaluated.
struct Branches : Node
{
    explicit Branches(const std::vector<Argument>& arguments)
    {
        for (const Argument& each : arguments) parts.push_back(each.value());
        height = height_above(parts);
    }
    void for_each_mention(const MentionVisitor& visit) const override
    {
        printing::for_each_mention(parts, visit);
    }

    std::vector<NodePtr> parts;
};

// Deliberate: only the part that is chosen is evaluated, so that IIf(n = 0, 0, a / n) is no division by zero.
struct IfBranches : Branches
{
    using Branches::Branches;
    Variant evaluate(const Environment& environment) const override
    {
        return parts[parts[0]->evaluate(environment).boolean() ? 1 : 2]->evaluate(environment);
    }
};

// If(value, what stands for Nothing)
struct Coalescing : Branches
{
    using Branches::Branches;
    Variant evaluate(const Environment& environment) const override
    {
        Variant value = parts[0]->evaluate(environment);
        return value.is_nothing() ? parts[1]->evaluate(environment) : value;
    }
};

struct SwitchBranches : Branches
{
    using Branches::Branches;
    Variant evaluate(const Environment& environment) const override
    {
        for (std::size_t i = 0; i + 1 < parts.size(); i += 2)
            if (parts[i]->evaluate(environment).boolean()) return parts[i + 1]->evaluate(environment);
        return {};
    }
};

struct ChooseBranches : Branches
{
    using Branches::Branches;
    Variant evaluate(const Environment& environment) const override
    {
        const std::int64_t index = parts[0]->evaluate(environment).whole_number();
        if (index < 1 || index >= static_cast<std::int64_t>(parts.size())) return {};
        return parts[static_cast<std::size_t>(index)]->evaluate(environment);
    }
};

constexpr std::size_t many = 1000;

NodePtr immediate_if(const std::vector<Argument>& arguments)
{
    require_arguments(arguments, 3, 3, u"IIf");
    return std::make_shared<IfBranches>(arguments);
}

NodePtr if_operator(const std::vector<Argument>& arguments)
{
    require_arguments(arguments, 2, 3, u"If");
    if (arguments.size() == 2) return std::make_shared<Coalescing>(arguments);
    return std::make_shared<IfBranches>(arguments);
}

NodePtr switch_form(const std::vector<Argument>& arguments)
{
    require_arguments(arguments, 2, many, u"Switch");
    if (arguments.size() % 2 != 0) throw invalid_call(u"Switch lleva una condición y un valor por cada caso");
    return std::make_shared<SwitchBranches>(arguments);
}

NodePtr choose(const std::vector<Argument>& arguments)
{
    require_arguments(arguments, 2, many, u"Choose");
    return std::make_shared<ChooseBranches>(arguments);
}

// CType(value, Integer): the second argument is the name of a kind, not a value.
NodePtr converted(const std::vector<Argument>& arguments)
{
    static constexpr std::pair<TextView, TextView> conversions[] = {
        {u"string", u"cstr"},    {u"integer", u"cint"}, {u"int32", u"cint"},    {u"long", u"clng"},
        {u"int64", u"clng"},     {u"short", u"cshort"}, {u"byte", u"cbyte"},    {u"double", u"cdbl"},
        {u"single", u"csng"},    {u"decimal", u"cdec"}, {u"boolean", u"cbool"}, {u"date", u"cdate"},
        {u"datetime", u"cdate"}, {u"object", u"cobj"}};
    require_arguments(arguments, 2, 2, u"CType");
    if (const TextView* conversion = find_name(conversions, arguments[1].source))
        return make_call(*function_named(Text(*conversion)), u"CType", {arguments[0].value()});
    throw invalid_call(u"Tipo desconocido: " + arguments[1].source);
}

constexpr NamedForm forms[] = {{u"iif", immediate_if}, {u"if", if_operator},  {u"switch", switch_form},
                               {u"choose", choose},    {u"ctype", converted}, {u"directcast", converted}};

} // namespace

std::span<const NamedForm> branch_forms() { return forms; }

} // namespace tolvex::printing
