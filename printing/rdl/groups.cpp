#include "printing/rdl/groups.hpp"

#include <set>

namespace tolvex::printing {

namespace {

const std::set<Text> comparisons = {
    u"Equal",    u"NotEqual",        u"Like",         u"GreaterThan", u"GreaterThanOrEqual",
    u"LessThan", u"LessThanOrEqual", u"In",           u"Between",     u"TopN",
    u"BottomN",  u"TopPercent",      u"BottomPercent"};

Text read_comparison(Reading& in, const Element& filter)
{
    Text comparison = in.text(filter, u"Operator");
    if (!comparisons.contains(comparison))
        throw wrong(filter, u"no se conoce el operador \"" + comparison + u"\" de un filtro");
    return comparison;
}

bool is_descending(Reading& in, const Element& sorting)
{
    return in.text(sorting, u"Direction") == u"Descending";
}

Break break_of(const Element& element, const Text& location)
{
    if (location == u"Start") return Break::start;
    if (location == u"End") return Break::end;
    if (location == u"StartAndEnd") return Break::start_and_end;
    if (location == u"Between") return Break::between;
    if (location.empty() || location == u"None") return Break::none;
    throw wrong(element, u"no se conoce el salto de página \"" + location + u"\"");
}

Break read_older_break(Reading& in, const Element& parent)
{
    const bool at_start = in.boolean(parent, u"PageBreakAtStart");
    const bool at_end = in.boolean(parent, u"PageBreakAtEnd");
    if (at_start) return at_end ? Break::start_and_end : Break::start;
    return at_end ? Break::end : Break::none;
}

} // namespace

std::vector<Filter> read_filters(Reading& in, const Element& parent)
{
    std::vector<Filter> filters;
    for (const Element* element : in.members(parent, u"Filters", u"Filter")) {
        Filter filter{in.expression(*element, u"FilterExpression"), read_comparison(in, *element), {}};
        for (const Element* value : in.members(*element, u"FilterValues", u"FilterValue"))
            filter.operands.push_back(in.value(*value));
        filters.push_back(std::move(filter));
    }
    return filters;
}

std::vector<Sorting> read_sorting(Reading& in, const Element& parent)
{
    std::vector<Sorting> sorting;
    for (const Element* element : in.members(parent, u"SortExpressions", u"SortExpression"))
        sorting.push_back({in.expression(*element, u"Value"), is_descending(in, *element)});
    for (const Element* element : in.members(parent, u"Sorting", u"SortBy"))
        sorting.push_back({in.expression(*element, u"SortExpression"), is_descending(in, *element)});
    return sorting;
}

Group read_group(Reading& in, const Element& element)
{
    in.name_scope(element);
    Group group;
    group.name = attribute(element, u"Name");
    for (const Element* by : in.members(element, u"GroupExpressions", u"GroupExpression"))
        group.by.push_back(in.value(*by));
    group.filters = read_filters(in, element);
    group.variables = read_variables(in, element);
    group.page_break = read_page_break(in, element);
    group.document_map_label = in.expression(element, u"DocumentMapLabel", u"Label");
    return group;
}

PageBreak read_page_break(Reading& in, const Element& parent)
{
    const Element* const element = in.child(parent, u"PageBreak");
    if (element == nullptr) return {read_older_break(in, parent), {}, {}};
    return {break_of(*element, in.text(*element, u"BreakLocation")), in.expression(*element, u"Disabled"),
            in.expression(*element, u"ResetPageNumber")};
}

Expression read_hidden(Reading& in, const Element& parent)
{
    const Element* const visibility = in.child(parent, u"Visibility");
    return visibility == nullptr ? Expression() : in.expression(*visibility, u"Hidden");
}

std::vector<Variable> read_variables(Reading& in, const Element& parent)
{
    std::vector<Variable> variables;
    for (const Element* element : in.members(parent, u"Variables", u"Variable"))
        variables.push_back({attribute(*element, u"Name"), in.expression(*element, u"Value")});
    return variables;
}

} // namespace tolvex::printing
