#include "printing/composing/laid_rows.hpp"

#include <algorithm>

namespace tolvex::printing {

namespace {

bool may_span_pages(const ReportItem& item)
{
    if (std::holds_alternative<Subreport>(item.content)) return true;
    if (std::holds_alternative<std::shared_ptr<const Tablix>>(item.content)) return true;
    const auto* rectangle = std::get_if<Rectangle>(&item.content);
    if (!rectangle) return false;
    return rectangle->page_break.location != Break::none ||
           std::any_of(rectangle->items.begin(), rectangle->items.end(), may_span_pages);
}

} // namespace

double LaidRows::height(int i)
{
    const auto known = known_.find(i);
    return known != known_.end() ? known->second.height : known_.emplace(i, laid(i)).first->second.height;
}

LaidRow LaidRows::take(int i)
{
    const auto known = known_.find(i);
    if (known == known_.end()) return laid(i);
    LaidRow row = std::move(known->second);
    known_.erase(known);
    return row;
}

std::span<const HeaderInstance> LaidRows::headers_from(int i) const
{
    const auto& all = plan_.row_headers();
    const auto begins_above = [](const HeaderInstance& header, int row) { return header.first < row; };
    const auto first = std::lower_bound(all.begin(), all.end(), i, begins_above);
    return {first, std::lower_bound(first, all.end(), i + 1, begins_above)};
}

double LaidRows::wanted_height(int i)
{
    const double page = canvas_.strip().page_height();
    double height = 0, wanted = 0;
    const auto add = [&](int row) {
        height += this->height(row);
        if (wanted == 0 || height <= page) wanted = std::max(wanted, height);
        return height <= page;
    };
    for (;; ++i) {
        double group = height;
        for (int at = i; at < i + instance(i).kept_rows && group <= page; ++at) group += this->height(at);
        if (group <= page) wanted = std::max(wanted, group);
        if (!add(i)) return wanted;
        if (instance(i).member->keep_with_group != KeepWithGroup::after || i + 1 == count()) break;
    }
    while (i + 1 < count() && instance(i + 1).member->keep_with_group == KeepWithGroup::before)
        if (!add(++i)) break;
    return wanted;
}

LaidRow LaidRows::laid(int i)
{
    const RowInstance& instance = this->instance(i);
    canvas_.report().composition().count_cells(plan_.columns().size() + 1);
    LaidRow row;
    row.height = tablix_.rows[static_cast<std::size_t>(instance.row)].height;
    for (std::size_t column = 0; column < plan_.columns().size(); ++column) add_cell(row, instance, column);
    for (const HeaderInstance& header : headers_from(i))
        if (header.last == i) add_header(row, header, row.height);
    if (row.cells.empty()) return row;
    row.height = 0; // text boxes may shrink
    for (LaidCell& cell : row.cells) row.height = std::max(row.height, laid_height(cell));
    row.may_span_pages = std::any_of(row.cells.begin(), row.cells.end(),
                                     [](const LaidCell& cell) { return cell.may_span_pages; });
    return row;
}

// A cell over several columns begins at the first of them that is not hidden.
void LaidRows::add_cell(LaidRow& row, const RowInstance& instance, std::size_t column)
{
    const auto& cells = tablix_.rows[static_cast<std::size_t>(instance.row)].cells;
    const int at = plan_.columns()[column].column;
    int first = at;
    while (first > 0 && !cells[static_cast<std::size_t>(first)].content) --first;
    const TablixCell& cell = cells[static_cast<std::size_t>(first)];
    const int before = column > 0 ? plan_.columns()[column - 1].column : -1;
    if (!cell.content || first + cell.column_span <= at || (before >= first && before < at)) return;
    LaidCell& own = row.cells.emplace_back();
    own.item = cell.content.get();
    own.left = left_ + plan_.row_headers_width() + plan_.columns()[column].left;
    own.width = width_of_span(column, at, first + cell.column_span);
    own.height = row.height;
    own.scope = plan_.cell_scope(instance, plan_.columns()[column], own.own);
}

// Of the columns from one on, as long as they are those of the body from `first` to `end`.
double LaidRows::width_of_span(std::size_t column, int first, int end) const
{
    double width = 0;
    for (int last = first - 1; column < plan_.columns().size(); ++column) {
        const ColumnInstance& each = plan_.columns()[column];
        if (each.column <= last || each.column >= end) break;
        width += each.width;
        last = each.column;
    }
    return width;
}

// The header of one row is a cell of it.
void LaidRows::add_header(LaidRow& row, const HeaderInstance& header, double height)
{
    if (!header.member->header->content) return;
    LaidCell& own = row.cells.emplace_back();
    own.item = header.member->header->content.get();
    own.left = left_ + header.offset;
    own.width = header.member->header->size;
    own.height = height;
    own.scope = header.scope;
}

double LaidRows::laid_height(LaidCell& cell)
{
    cell.hidden = is_true(cell.item->hidden, canvas_.environment(cell.scope), cell.item->place);
    if (cell.hidden) return cell.height;
    const pages::Box box{cell.left, 0, cell.width, cell.height};
    if (std::holds_alternative<Textbox>(cell.item->content)) {
        cell.text.emplace(lay_text(canvas_, *cell.item, box, cell.scope));
        return height_with(*cell.text, cell.height);
    }
    cell.may_span_pages = may_span_pages(*cell.item);
    return cell.may_span_pages ? cell.height : height_of(canvas_, *cell.item, box, {cell.scope, false});
}

} // namespace tolvex::printing
