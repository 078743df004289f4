// The Tablix of 2008 and later.
#include "core/numbers.hpp"
#include "printing/rdl/data_regions.hpp"
#include "printing/rdl/groups.hpp"
#include "printing/rdl/report_items.hpp"

#include <algorithm>

namespace tolvex::printing {

namespace {

Text counted(std::size_t count, const Text& what)
{
    return decimal(static_cast<std::int64_t>(count)) + u" " + what;
}

std::vector<double> read_column_widths(Reading& in, const Element& body)
{
    std::vector<double> widths;
    for (const Element* column : in.members(body, u"TablixColumns", u"TablixColumn"))
        widths.push_back(in.length(*column, u"Width").value_or(0));
    return widths;
}

// Cells in a grid of columns and rows, each read with the room of what it spans.
class CellGrid
{
public:
    CellGrid(Reading& in, std::vector<double> widths, std::vector<double> heights)
        : in_(in), widths_(std::move(widths)), heights_(std::move(heights)), covered_down_to_(widths_.size())
    {}

    std::vector<TablixCell> read_row(const std::vector<const Element*>& elements)
    {
        std::vector<TablixCell> cells(elements.size());
        for (std::size_t column = 0; column < elements.size(); ++column)
            if (covered_down_to_[column] <= row_) cells[column] = read_cell(*elements[column], column);
        ++row_;
        return cells;
    }

private:
    TablixCell read_cell(const Element& element, std::size_t column)
    {
        TablixCell cell;
        const Element* const contents = in_.child(element, u"CellContents");
        if (contents == nullptr) return cell;
        cell.column_span = read_span(*contents, u"ColSpan", widths_.size() - column);
        cell.row_span = read_span(*contents, u"RowSpan", heights_.size() - row_);
        const auto columns = static_cast<std::size_t>(cell.column_span);
        const auto rows = static_cast<std::size_t>(cell.row_span);
        std::fill_n(covered_down_to_.begin() + static_cast<std::ptrdiff_t>(column), columns, row_ + rows);
        cell.content =
            read_content(in_, element, {extent(widths_, column, columns), extent(heights_, row_, rows)});
        return cell;
    }

    int read_span(const Element& contents, TextView name, std::size_t most)
    {
        const int span = in_.whole_number(contents, name).value_or(1);
        if (span < 1 || static_cast<std::size_t>(span) > most)
            throw wrong(contents, Text(name) + u" " + decimal(span) + u" sale de la cuadrícula");
        return span;
    }

    Reading& in_;
    const std::vector<double> widths_, heights_;
    std::vector<std::size_t> covered_down_to_; // the first row of each column that no cell above spans
    std::size_t row_ = 0;
};

void read_body(Reading& in, const Element& body, Tablix& tablix)
{
    tablix.column_widths = read_column_widths(in, body);
    const std::vector<const Element*> rows = in.members(body, u"TablixRows", u"TablixRow");
    for (const Element* row : rows) tablix.rows.push_back({in.length(*row, u"Height").value_or(0), {}});
    CellGrid grid(in, tablix.column_widths, heights_of(tablix.rows));
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const std::vector<const Element*> cells = in.members(*rows[i], u"TablixCells", u"TablixCell");
        if (cells.size() != tablix.column_widths.size())
            throw wrong(*rows[i], u"la fila tiene " + counted(cells.size(), u"celdas") + u" y la tabla " +
                                      counted(tablix.column_widths.size(), u"columnas"));
        tablix.rows[i].cells = grid.read_row(cells);
    }
}

KeepWithGroup read_keep_with_group(Reading& in, const Element& member)
{
    const Text keep = in.text(member, u"KeepWithGroup");
    if (keep == u"Before") return KeepWithGroup::before;
    return keep == u"After" ? KeepWithGroup::after : KeepWithGroup::none;
}

// The rows or the columns of a Tablix. Its leaves take the sizes of the body one after the other, so that a
// header knows how long it is.
class Hierarchy
{
public:
    Hierarchy(Reading& in, bool of_rows, std::vector<double> sizes)
        : in_(in), of_rows_(of_rows), sizes_(std::move(sizes))
    {}

    std::vector<TablixMember> read(const Element& tablix)
    {
        const Text name = of_rows_ ? u"TablixRowHierarchy" : u"TablixColumnHierarchy";
        const Element* const element = in_.child(tablix, name);
        if (element == nullptr) throw wrong(tablix, u"falta " + name);
        std::vector<TablixMember> members = read_members(*element);
        if (leaves_ != sizes_.size())
            throw wrong(*element, name + u" tiene " + counted(leaves_, u"miembros sin otros dentro") +
                                      u" y el cuerpo " +
                                      counted(sizes_.size(), of_rows_ ? u"filas" : u"columnas"));
        return members;
    }

private:
    std::vector<TablixMember> read_members(const Element& parent)
    {
        std::vector<TablixMember> members;
        for (const Element* element : in_.members(parent, u"TablixMembers", u"TablixMember"))
            members.push_back(read_member(*element));
        return members;
    }

    TablixMember read_member(const Element& element)
    {
        TablixMember member;
        member.place = place_of(element);
        if (const Element* const group = in_.child(element, u"Group")) member.group = read_group(in_, *group);
        member.sorting = read_sorting(in_, element);
        member.hidden = read_hidden(in_, element);
        member.keep_with_group = read_keep_with_group(in_, element);
        member.repeat_on_new_page = in_.boolean(element, u"RepeatOnNewPage");
        member.keep_together = in_.boolean(element, u"KeepTogether");
        member.hide_if_no_rows = in_.boolean(element, u"HideIfNoRows");
        const std::size_t first_leaf = leaves_;
        member.members = read_members(element);
        if (member.members.empty()) ++leaves_;
        member.header = read_header(element, extent(sizes_, first_leaf, leaves_ - first_leaf));
        return member;
    }

    std::optional<TablixHeader> read_header(const Element& member, double length)
    {
        const Element* const element = in_.child(member, u"TablixHeader");
        if (element == nullptr) return {};
        const double size = in_.length(*element, u"Size").value_or(0);
        const Size room = of_rows_ ? Size{size, length} : Size{length, size};
        return TablixHeader{size, read_content(in_, *element, room)};
    }

    Reading& in_;
    const bool of_rows_;
    const std::vector<double> sizes_;
    std::size_t leaves_ = 0;
};

// The sizes of the headers, level by level, where there are most.
std::vector<double> levels_of_headers(const std::vector<TablixMember>& members)
{
    std::vector<double> most;
    for (const TablixMember& member : members) {
        std::vector<double> levels = levels_of_headers(member.members);
        if (member.header) levels.insert(levels.begin(), member.header->size);
        if (levels.size() > most.size()) most = std::move(levels);
    }
    return most;
}

std::vector<std::vector<TablixCell>> read_corner(Reading& in, const Element& element, const Tablix& tablix)
{
    std::vector<std::vector<TablixCell>> corner;
    const Element* const corner_element = in.child(element, u"TablixCorner");
    if (corner_element == nullptr) return corner;
    const std::vector<double> widths = levels_of_headers(tablix.row_members);
    const std::vector<double> heights = levels_of_headers(tablix.column_members);
    const auto rows = in.members(*corner_element, u"TablixCornerRows", u"TablixCornerRow");
    if (rows.size() != heights.size())
        throw wrong(*corner_element, u"la esquina tiene " + counted(rows.size(), u"filas") + u" y hay " +
                                         counted(heights.size(), u"niveles de encabezados de columna"));
    CellGrid grid(in, widths, heights);
    for (const Element* row : rows) {
        const auto cells = in.children(*row, u"TablixCornerCell");
        if (cells.size() != widths.size())
            throw wrong(*row, u"la esquina tiene " + counted(cells.size(), u"celdas") + u" y hay " +
                                  counted(widths.size(), u"niveles de encabezados de fila"));
        corner.push_back(grid.read_row(cells));
    }
    return corner;
}

} // namespace

void read_tablix(Reading& in, const Element& element, ReportItem& item)
{
    Tablix tablix = read_data_region(in, element);
    const Element* const body = in.child(element, u"TablixBody");
    if (body == nullptr) throw wrong(element, u"falta TablixBody");
    read_body(in, *body, tablix);
    tablix.row_members = Hierarchy(in, true, heights_of(tablix.rows)).read(element);
    tablix.column_members = Hierarchy(in, false, tablix.column_widths).read(element);
    tablix.corner = read_corner(in, element, tablix);
    tablix.repeat_column_headers = in.boolean(element, u"RepeatColumnHeaders");
    tablix.repeat_row_headers = in.boolean(element, u"RepeatRowHeaders");
    set_content(item, std::move(tablix));
}

} // namespace tolvex::printing
