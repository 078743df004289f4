// The Table of 2005: header, groups around details, footer. Each of its rows is a row of the Tablix.
#include "printing/rdl/data_regions.hpp"
#include "printing/rdl/groups.hpp"
#include "printing/rdl/report_items.hpp"

namespace tolvex::printing {

namespace {

class TableReader
{
public:
    TableReader(Reading& in, const Element& element)
        : in_(in), element_(element), groups_(in.members(element, u"TableGroups", u"TableGroup"))
    {}

    Tablix read()
    {
        tablix_ = read_data_region(in_, element_);
        read_columns();
        read_band(tablix_.row_members, element_, u"Header", KeepWithGroup::after);
        read_group_or_details(tablix_.row_members, 0);
        read_band(tablix_.row_members, element_, u"Footer", KeepWithGroup::before);
        if (tablix_.rows.empty()) throw wrong(element_, u"la tabla no tiene filas");
        return std::move(tablix_);
    }

private:
    void read_columns()
    {
        for (const Element* column : in_.members(element_, u"TableColumns", u"TableColumn")) {
            TablixMember member = member_at(*column);
            member.hidden = read_hidden(in_, *column);
            tablix_.column_members.push_back(std::move(member));
            tablix_.column_widths.push_back(in_.length(*column, u"Width").value_or(0));
        }
    }

    // Header or footer: rows that stay with what they head or close, and come again on each page where they
    // say so.
    void read_band(std::vector<TablixMember>& members, const Element& parent, TextView name,
                   KeepWithGroup keep)
    {
        const Element* const band = in_.child(parent, name);
        if (band == nullptr) return;
        const bool repeats = in_.boolean(*band, u"RepeatOnNewPage");
        for (TablixMember& member : read_rows(*band)) {
            member.keep_with_group = keep;
            member.repeat_on_new_page = repeats;
            members.push_back(std::move(member));
        }
    }

    void read_group_or_details(std::vector<TablixMember>& members, std::size_t level)
    {
        if (level == groups_.size()) return read_details(members);
        const Element& element = *groups_[level];
        TablixMember member = dynamic_member(element);
        read_band(member.members, element, u"Header", KeepWithGroup::after);
        read_group_or_details(member.members, level + 1);
        read_band(member.members, element, u"Footer", KeepWithGroup::before);
        if (!member.members.empty()) members.push_back(std::move(member));
    }

    void read_details(std::vector<TablixMember>& members)
    {
        const Element* const details = in_.child(element_, u"Details");
        if (details == nullptr) return;
        TablixMember member = dynamic_member(*details);
        member.members = read_rows(*details);
        if (member.members.empty()) return;
        if (member.members.size() == 1 && member.members.front().hidden.is_empty()) member.members.clear();
        members.push_back(std::move(member));
    }

    TablixMember dynamic_member(const Element& element)
    {
        TablixMember member = member_at(element);
        const Element* const grouping = in_.child(element, u"Grouping");
        member.group = grouping == nullptr ? Group() : read_group(in_, *grouping);
        member.sorting = read_sorting(in_, element);
        member.hidden = read_hidden(in_, element);
        return member;
    }

    std::vector<TablixMember> read_rows(const Element& band)
    {
        std::vector<TablixMember> members;
        for (const Element* row : in_.members(band, u"TableRows", u"TableRow")) {
            TablixMember member = member_at(*row);
            member.hidden = read_hidden(in_, *row);
            members.push_back(std::move(member));
            tablix_.rows.push_back(read_row(*row));
        }
        return members;
    }

    TablixRow read_row(const Element& element)
    {
        TablixRow row{in_.length(element, u"Height").value_or(0), {}};
        for (const Element* cell : in_.members(element, u"TableCells", u"TableCell")) {
            const std::size_t column = row.cells.size();
            row.cells.push_back(read_cell(*cell, column, row.height));
            row.cells.resize(column + static_cast<std::size_t>(row.cells.back().column_span));
        }
        if (row.cells.size() != tablix_.column_widths.size())
            throw wrong(element, u"las celdas de la fila no llenan las columnas de la tabla");
        return row;
    }

    TablixCell read_cell(const Element& element, std::size_t column, double height)
    {
        TablixCell cell;
        cell.column_span = in_.whole_number(element, u"ColSpan").value_or(1);
        if (cell.column_span < 1 ||
            column + static_cast<std::size_t>(cell.column_span) > tablix_.column_widths.size())
            throw wrong(element, u"las celdas de la fila no llenan las columnas de la tabla");
        const auto span = static_cast<std::size_t>(cell.column_span);
        cell.content = read_content(in_, element, {extent(tablix_.column_widths, column, span), height});
        return cell;
    }

    static TablixMember member_at(const Element& element)
    {
        TablixMember member;
        member.place = place_of(element);
        return member;
    }

    Reading& in_;
    const Element& element_;
    const std::vector<const Element*> groups_;
    Tablix tablix_;
};

} // namespace

void read_table(Reading& in, const Element& element, ReportItem& item)
{
    set_content(item, TableReader(in, element).read());
}

} // namespace tolvex::printing
