// Rows of a scope filtered, sorted and parted into the instances of a group.
#pragma once

#include "printing/composing/report.hpp"

namespace tolvex::printing {

RowOrder all_rows(const DataTable& table);

// Keeps the rows of the scope that pass every filter; the scope becomes shorter, what lay behind its end in
// the order is lost.
void keep_filtered(const Report& report, const std::vector<Filter>& filters, Scope& scope, RowOrder& order);

// Stable: rows that compare equal stay as they were.
void sort_rows(const Report& report, const std::vector<Sorting>& sorting, const Scope& scope,
               RowOrder& order);

// Brings the rows of each instance together and gives where each ends. Instances come in the order of their
// first rows, or as the sorting of the group says; a group by nothing has an instance for every row.
std::vector<std::uint32_t> part_rows(const Report& report, const Group& group,
                                     const std::vector<Sorting>& sorting, const Scope& scope,
                                     RowOrder& order);

// Keeps the instances of a group that pass its filters.
void keep_filtered(const Report& report, const std::vector<Filter>& filters, std::vector<Scope>& instances);

} // namespace tolvex::printing
