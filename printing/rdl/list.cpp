// The List of 2005: free items, repeated for each row or group. A Tablix of one cell that holds them.
#include "printing/rdl/data_regions.hpp"
#include "printing/rdl/groups.hpp"
#include "printing/rdl/report_items.hpp"

namespace tolvex::printing {

namespace {

TablixMember read_member(Reading& in, const Element& list)
{
    TablixMember member;
    member.place = place_of(list);
    const Element* const grouping = in.child(list, u"Grouping");
    member.group = grouping == nullptr ? Group() : read_group(in, *grouping);
    return member;
}

TablixCell read_cell(Reading& in, const Element& list, const ReportItem& item)
{
    ReportItem contents;
    contents.place = item.place;
    contents.width = item.width;
    contents.height = item.height;
    contents.content = Rectangle{read_items(in, list, {item.width, item.height}), {}, false};
    return {std::make_shared<const ReportItem>(std::move(contents)), 1, 1};
}

} // namespace

void read_list(Reading& in, const Element& element, ReportItem& item)
{
    Tablix tablix = read_data_region(in, element);
    TablixMember member = read_member(in, element);
    member.sorting = std::exchange(tablix.sorting, {});
    member.keep_together = true;
    tablix.row_members.push_back(std::move(member));
    tablix.column_members.emplace_back().place = item.place;
    tablix.column_widths = {item.width};
    tablix.rows = {{item.height, {read_cell(in, element, item)}}};
    set_content(item, std::move(tablix));
}

} // namespace tolvex::printing
