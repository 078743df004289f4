#include "printing/rdl/data_regions.hpp"

#include "printing/rdl/groups.hpp"

#include <algorithm>
#include <numeric>

namespace tolvex::printing {

namespace {

// The room that the headers of a hierarchy take beside its rows or above its columns.
double extent_of_headers(const std::vector<TablixMember>& members)
{
    double most = 0;
    for (const TablixMember& member : members)
        most = std::max(most, (member.header ? member.header->size : 0) + extent_of_headers(member.members));
    return most;
}

} // namespace

Tablix read_data_region(Reading& in, const Element& element)
{
    in.name_scope(element);
    Tablix tablix;
    tablix.data_set = in.text(element, u"DataSetName");
    tablix.filters = read_filters(in, element);
    tablix.sorting = read_sorting(in, element);
    tablix.page_break = read_page_break(in, element);
    tablix.no_rows_message = in.expression(element, u"NoRowsMessage", u"NoRows");
    tablix.keep_together = in.boolean(element, u"KeepTogether");
    return tablix;
}

void set_content(ReportItem& item, Tablix tablix)
{
    item.width = extent_of_headers(tablix.row_members) + extent(tablix.column_widths);
    item.height = extent_of_headers(tablix.column_members) + extent(heights_of(tablix.rows));
    item.content = std::make_shared<const Tablix>(std::move(tablix));
}

double extent(const std::vector<double>& sizes, std::size_t first, std::size_t count)
{
    const auto begin = sizes.begin() + static_cast<std::ptrdiff_t>(std::min(first, sizes.size()));
    const auto end =
        begin + static_cast<std::ptrdiff_t>(std::min(count, static_cast<std::size_t>(sizes.end() - begin)));
    return std::accumulate(begin, end, 0.0);
}

double extent(const std::vector<double>& sizes) { return extent(sizes, 0, sizes.size()); }

std::vector<double> heights_of(const std::vector<TablixRow>& rows)
{
    std::vector<double> heights;
    for (const TablixRow& row : rows) heights.push_back(row.height);
    return heights;
}

} // namespace tolvex::printing
