#include "printing/composing/layout_index.hpp"

#include <algorithm>

namespace tolvex::printing {

LayoutIndex::LayoutIndex(const Layout& layout)
{
    add(layout.body.items, {});
    if (layout.header) add(layout.header->items, {});
    if (layout.footer) add(layout.footer->items, {});
}

const LayoutIndex::TextBox* LayoutIndex::text_box(TextView name) const
{
    const auto found = text_boxes_.find(lower_case(name));
    return found == text_boxes_.end() ? nullptr : &found->second;
}

void LayoutIndex::add(const std::vector<ReportItem>& items, const Text& scope)
{
    for (const ReportItem& item : items) add(item, scope);
}

void LayoutIndex::add(const ReportItem& item, const Text& scope)
{
    if (std::holds_alternative<Textbox>(item.content))
        text_boxes_.emplace(lower_case(item.name), TextBox{&item, scope});
    if (const auto* rectangle = std::get_if<Rectangle>(&item.content)) add(rectangle->items, scope);
    if (const auto* tablix = std::get_if<std::shared_ptr<const Tablix>>(&item.content))
        add(**tablix, item.name);
}

void LayoutIndex::add(const Tablix& tablix, const Text& region)
{
    std::vector<Text> rows, columns; // the scopes of each
    add(tablix.row_members, region, rows);
    add(tablix.column_members, region, columns);
    for (const auto& cells : tablix.corner)
        for (const TablixCell& cell : cells)
            if (cell.content) add(*cell.content, region);
    for (std::size_t row = 0; row < tablix.rows.size(); ++row)
        for (std::size_t column = 0; column < tablix.rows[row].cells.size(); ++column)
            if (const auto& content = tablix.rows[row].cells[column].content)
                add(*content, columns[column] == region ? rows[row] : Text());
}

void LayoutIndex::add(const std::vector<TablixMember>& members, const Text& scope, std::vector<Text>& leaves)
{
    for (const TablixMember& member : members) {
        const Text& own = member.group ? member.group->name : scope;
        if (member.group) groups_.insert(lower_case(own));
        if (member.header && member.header->content) add(*member.header->content, own);
        if (member.members.empty())
            leaves.push_back(own);
        else
            add(member.members, own, leaves);
    }
}

} // namespace tolvex::printing
