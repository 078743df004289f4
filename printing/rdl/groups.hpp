// What data regions, groups and items have in common: filters, sorting, grouping, page breaks, visibility,
// variables.
#pragma once

#include "printing/rdl/reading.hpp"

namespace tolvex::printing {

std::vector<Filter> read_filters(Reading& in, const Element& parent);
// <SortExpressions>, and <Sorting> of 2005.
std::vector<Sorting> read_sorting(Reading& in, const Element& parent);
// <Group>, and <Grouping> of 2005.
Group read_group(Reading& in, const Element& element);
// <PageBreak>, and the <PageBreakAtStart> and <PageBreakAtEnd> of 2005.
PageBreak read_page_break(Reading& in, const Element& parent);
// What a click would toggle is printed as it stands at first.
Expression read_hidden(Reading& in, const Element& parent);
std::vector<Variable> read_variables(Reading& in, const Element& parent);

} // namespace tolvex::printing
