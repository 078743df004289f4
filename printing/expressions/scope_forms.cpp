#include "core/errors.hpp"
#include "printing/expressions/forms.hpp"
#include "printing/expressions/names.hpp"

namespace tolvex::printing {

namespace {

using Mention = Expression::Mention;

void mention_scope(const std::optional<Text>& scope, const MentionVisitor& visit)
{
    if (scope) visit(Mention::scope, *scope);
}

struct Aggregate : Node
{
    explicit Aggregate(AggregateCall c, int height = 1) : Node(height), call(std::move(c)) {}
    Variant evaluate(const Environment& environment) const override { return environment.aggregate(call); }
    void for_each_mention(const MentionVisitor& visit) const override
    {
        call.argument.for_each_mention(visit);
        mention_scope(call.scope, visit);
    }

    AggregateCall call;
};

struct Lookup : Node
{
    Lookup(LookupCall c, int height) : Node(height), call(std::move(c)) {}
    Variant evaluate(const Environment& environment) const override { return environment.lookup(call); }
    void for_each_mention(const MentionVisitor& visit) const override
    {
        call.source.for_each_mention(visit); // the other two speak of another data set
        visit(Mention::scope, call.data_set);
    }

    LookupCall call;
};

struct InScope : Node
{
    explicit InScope(Text s) : scope(std::move(s)) {}
    Variant evaluate(const Environment& environment) const override { return environment.in_scope(scope); }
    void for_each_mention(const MentionVisitor& visit) const override { visit(Mention::scope, scope); }

    Text scope;
};

struct Level : Node
{
    explicit Level(std::optional<Text> s) : scope(std::move(s)) {}
    Variant evaluate(const Environment& environment) const override { return environment.level(scope); }
    void for_each_mention(const MentionVisitor& visit) const override { mention_scope(scope, visit); }

    std::optional<Text> scope;
};

std::optional<Text> scope_in(const std::vector<Argument>& arguments, std::size_t place)
{
    return place < arguments.size() ? arguments[place].constant_text() : std::nullopt;
}

// Sum(value, scope, Recursive) would sum a hierarchy; Simple is what it is without.
void refuse_recursion(const std::vector<Argument>& arguments)
{
    if (arguments.size() > 2 && !equal_ignoring_case(arguments[2].source, u"Simple"))
        throw invalid_call(u"Los agregados recursivos (Recursive) no están soportados");
}

template <AggregateFunction function>
NodePtr over_rows(const std::vector<Argument>& arguments)
{
    require_arguments(arguments, 1, 3, u"un agregado");
    refuse_recursion(arguments);
    return std::make_shared<Aggregate>(
        AggregateCall{function, function, arguments[0].expression(), scope_in(arguments, 1)},
        height_above({arguments[0].value()}));
}

template <AggregateFunction function>
NodePtr of_scope(const std::vector<Argument>& arguments)
{
    require_arguments(arguments, 0, 2, u"CountRows o RowNumber");
    return std::make_shared<Aggregate>(AggregateCall{function, function, {}, scope_in(arguments, 0)});
}

AggregateFunction aggregate_named(const Text& name)
{
    using enum AggregateFunction;
    static constexpr std::pair<TextView, AggregateFunction> names[] = {{u"Sum", sum},
                                                                       {u"First", first},
                                                                       {u"Last", last},
                                                                       {u"Count", count},
                                                                       {u"CountDistinct", count_distinct},
                                                                       {u"Avg", avg},
                                                                       {u"Min", min},
                                                                       {u"Max", max},
                                                                       {u"StDev", st_dev},
                                                                       {u"StDevP", st_dev_p},
                                                                       {u"Var", var},
                                                                       {u"VarP", var_p},
                                                                       {u"CountRows", count_rows}};
    if (const AggregateFunction* function = find_name(names, name)) return *function;
    throw invalid_call(u"RunningValue no conoce la función " + name);
}

NodePtr running_value(const std::vector<Argument>& arguments)
{
    require_arguments(arguments, 2, 3, u"RunningValue");
    return std::make_shared<Aggregate>(AggregateCall{AggregateFunction::running_value,
                                                     aggregate_named(arguments[1].source),
                                                     arguments[0].expression(), scope_in(arguments, 2)},
                                       height_above({arguments[0].value()}));
}

template <bool every_match>
NodePtr lookup(const std::vector<Argument>& arguments)
{
    require_arguments(arguments, 4, 4, every_match ? u"LookupSet" : u"Lookup");
    return std::make_shared<Lookup>(
        LookupCall{arguments[0].expression(), arguments[1].expression(), arguments[2].expression(),
                   scope_in(arguments, 3).value_or(Text()), every_match},
        height_above({arguments[0].value(), arguments[1].value(), arguments[2].value()}));
}

NodePtr in_scope(const std::vector<Argument>& arguments)
{
    require_arguments(arguments, 1, 1, u"InScope");
    return std::make_shared<InScope>(scope_in(arguments, 0).value_or(Text()));
}

NodePtr level(const std::vector<Argument>& arguments)
{
    require_arguments(arguments, 0, 1, u"Level");
    return std::make_shared<Level>(scope_in(arguments, 0));
}

constexpr NamedForm forms[] = {{u"sum", over_rows<AggregateFunction::sum>},
                               {u"first", over_rows<AggregateFunction::first>},
                               {u"last", over_rows<AggregateFunction::last>},
                               {u"count", over_rows<AggregateFunction::count>},
                               {u"countdistinct", over_rows<AggregateFunction::count_distinct>},
                               {u"avg", over_rows<AggregateFunction::avg>},
                               {u"min", over_rows<AggregateFunction::min>},
                               {u"max", over_rows<AggregateFunction::max>},
                               {u"stdev", over_rows<AggregateFunction::st_dev>},
                               {u"stdevp", over_rows<AggregateFunction::st_dev_p>},
                               {u"var", over_rows<AggregateFunction::var>},
                               {u"varp", over_rows<AggregateFunction::var_p>},
                               {u"previous", over_rows<AggregateFunction::previous>},
                               {u"countrows", of_scope<AggregateFunction::count_rows>},
                               {u"rownumber", of_scope<AggregateFunction::row_number>},
                               {u"runningvalue", running_value},
                               {u"lookup", lookup<false>},
                               {u"lookupset", lookup<true>},
                               {u"inscope", in_scope},
                               {u"level", level}};

} // namespace

std::span<const NamedForm> scope_forms() { return forms; }

} // namespace tolvex::printing
