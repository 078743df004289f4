// The Matrix of 2005: row and column groupings, one inside the other, around one cell, or as many as there
// are static rows and columns. As a Tablix it has a row for each static one, and once more for each
// subtotal.
#include "printing/rdl/data_regions.hpp"
#include "printing/rdl/groups.hpp"
#include "printing/rdl/report_items.hpp"
#include "printing/rdl/styles.hpp"

#include <algorithm>

namespace tolvex::printing {

namespace {

constexpr std::size_t most_cells = 10'000;

using Content = std::shared_ptr<const ReportItem>;

// How rows and columns of a matrix are written.
struct Axis
{
    TextView groupings, grouping, size, dynamic, statics, static_one, sizes, sizes_one, size_of_one;
};

constexpr Axis row_axis = {u"RowGroupings", u"RowGrouping", u"Width",     u"DynamicRows", u"StaticRows",
                           u"StaticRow",    u"MatrixRows",  u"MatrixRow", u"Height"};
constexpr Axis column_axis = {u"ColumnGroupings", u"ColumnGrouping", u"Height",
                              u"DynamicColumns",  u"StaticColumns",  u"StaticColumn",
                              u"MatrixColumns",   u"MatrixColumn",   u"Width"};

// A row or column of the Tablix: which one of the matrix it shows, and the subtotal that it belongs to.
struct Leaf
{
    std::size_t index = 0;
    bool in_subtotal = false;
    Style style; // of the subtotal
};

// The hierarchy of an axis, and its leaves in order.
class MatrixAxis
{
public:
    MatrixAxis(Reading& in, const Element& matrix, const Axis& axis)
        : in_(in), axis_(axis), matrix_(matrix), levels_(in.members(matrix, axis.groupings, axis.grouping))
    {
        for (const Element* one : in.members(matrix, axis.sizes, axis.sizes_one))
            sizes_.push_back(in.length(*one, axis.size_of_one).value_or(0));
        for (const Element* level : levels_)
            header_sizes_.push_back(in.length(*level, axis.size).value_or(0));
        expect_a_size_for_each_static();
        members_ = read_level(0, {});
        if (members_.empty()) members_ = {bare_leaf()};
    }

    const std::vector<double>& sizes() const { return sizes_; }
    const std::vector<double>& header_sizes() const { return header_sizes_; }
    const std::vector<Leaf>& leaves() const { return leaves_; }
    std::vector<TablixMember> take_members() { return std::move(members_); }

private:
    void expect_a_size_for_each_static()
    {
        std::size_t statics = 1, static_levels = 0;
        for (const Element* level : levels_) {
            if (in_.child(*level, axis_.statics) == nullptr) continue;
            statics = in_.members(*level, axis_.statics, axis_.static_one).size();
            ++static_levels;
        }
        if (static_levels > 1) throw wrong(matrix_, u"hay más de un " + Text(axis_.statics));
        if (statics != sizes_.size() || statics == 0)
            throw wrong(matrix_,
                        Text(axis_.sizes) + u" no tiene tantos elementos como " + Text(axis_.statics));
    }

    bool is_dynamic(std::size_t level) { return in_.child(*levels_[level], axis_.dynamic) != nullptr; }

    // `leaf` is what the levels above have settled of it.
    std::vector<TablixMember> read_level(std::size_t level, const Leaf& leaf)
    {
        if (level == levels_.size()) return {};
        if (!is_dynamic(level)) return read_statics(level, leaf);
        return leaf.in_subtotal ? read_level(level + 1, leaf) : read_dynamic(level, leaf);
    }

    std::vector<TablixMember> read_dynamic(std::size_t level, const Leaf& leaf)
    {
        const Element& element = *in_.child(*levels_[level], axis_.dynamic);
        const Element* const subtotal = in_.child(element, u"Subtotal");
        const bool before = subtotal != nullptr && in_.text(*subtotal, u"Position") == u"Before";
        std::vector<TablixMember> members;
        if (before) members.push_back(read_subtotal(*subtotal, level, leaf));
        members.push_back(read_group_member(element, level, leaf));
        if (subtotal != nullptr && !before) members.push_back(read_subtotal(*subtotal, level, leaf));
        return members;
    }

    TablixMember read_group_member(const Element& element, std::size_t level, const Leaf& leaf)
    {
        const Element* const grouping = in_.child(element, u"Grouping");
        if (grouping == nullptr) throw wrong(element, u"falta Grouping");
        TablixMember member = read_member(element, level, header_sizes_[level], leaf);
        member.group = read_group(in_, *grouping);
        member.sorting = read_sorting(in_, element);
        member.hidden = read_hidden(in_, element);
        return member;
    }

    TablixMember read_subtotal(const Element& element, std::size_t level, Leaf leaf)
    {
        leaf.in_subtotal = true;
        leaf.style = read_style(in_, element);
        return read_member(element, level, header_sizes_[level] + size_of_groups_from(level + 1), leaf);
    }

    std::vector<TablixMember> read_statics(std::size_t level, Leaf leaf)
    {
        std::vector<TablixMember> members;
        const double inner = leaf.in_subtotal ? size_of_groups_from(level + 1) : 0;
        for (const Element* element : in_.members(*levels_[level], axis_.statics, axis_.static_one)) {
            members.push_back(read_member(*element, level, header_sizes_[level] + inner, leaf));
            ++leaf.index;
        }
        return members;
    }

    // In a subtotal the groups inside it have no instances: a header takes the room of those that follow at
    // once.
    double size_of_groups_from(std::size_t level)
    {
        double sum = 0;
        for (; level < levels_.size() && is_dynamic(level); ++level) sum += header_sizes_[level];
        return sum;
    }

    TablixMember read_member(const Element& element, std::size_t level, double header_size, const Leaf& leaf)
    {
        const std::size_t first = leaves_.size();
        TablixMember member;
        member.place = place_of(element);
        member.members = read_level(level + 1, leaf);
        if (leaves_.size() == first) add_leaf(leaf);
        double length = 0;
        for (std::size_t i = first; i < leaves_.size(); ++i) length += sizes_[leaves_[i].index];
        const bool is_row = &axis_ == &row_axis;
        member.header = TablixHeader{
            header_size, header(element, is_row ? Size{header_size, length} : Size{length, header_size})};
        return member;
    }

    // Below static rows or columns the same header comes again, which is read once.
    Content header(const Element& element, Size room)
    {
        const auto [entry, is_new] = headers_.try_emplace(&element);
        if (is_new) entry->second = read_content(in_, element, room);
        if (entry->second == nullptr) return nullptr;
        ReportItem item = *entry->second;
        item.width = room.width;
        item.height = room.height;
        return std::make_shared<const ReportItem>(std::move(item));
    }

    TablixMember bare_leaf()
    {
        add_leaf({});
        TablixMember member;
        member.place = place_of(matrix_);
        return member;
    }

    void add_leaf(const Leaf& leaf)
    {
        leaves_.push_back(leaf);
        if (leaves_.size() > most_cells) throw wrong(matrix_, u"la matriz es demasiado grande");
    }

    Reading& in_;
    const Axis& axis_;
    const Element& matrix_;
    const std::vector<const Element*> levels_;
    std::vector<double> sizes_, header_sizes_;
    std::vector<Leaf> leaves_;
    std::map<const Element*, Content> headers_;
    std::vector<TablixMember> members_;
};

using Cells = std::vector<std::vector<Content>>;

Cells read_cells(Reading& in, const Element& matrix, const MatrixAxis& rows, const MatrixAxis& columns)
{
    Cells cells;
    for (const Element* row : in.members(matrix, u"MatrixRows", u"MatrixRow")) {
        const std::vector<const Element*> elements = in.members(*row, u"MatrixCells", u"MatrixCell");
        if (elements.size() != columns.sizes().size())
            throw wrong(*row, u"la fila no tiene tantas celdas como columnas la matriz");
        std::vector<Content>& contents = cells.emplace_back();
        const double height = rows.sizes()[cells.size() - 1];
        for (const Element* element : elements)
            contents.push_back(read_content(in, *element, {columns.sizes()[contents.size()], height}));
    }
    return cells;
}

// The style of a subtotal wins over that of the cell; where two subtotals cross, that of the row.
Content in_style(const Content& content, const Leaf& row, const Leaf& column)
{
    if (content == nullptr || (!row.in_subtotal && !column.in_subtotal)) return content;
    const Style style = overlaid(row.style, column.style);
    ReportItem item = *content;
    item.style = overlaid(style, item.style);
    if (auto* const textbox = std::get_if<Textbox>(&item.content))
        for (Paragraph& paragraph : textbox->paragraphs) {
            paragraph.style = with_text_of(style, paragraph.style);
            for (TextRun& run : paragraph.runs) run.style = with_text_of(style, run.style);
        }
    return std::make_shared<const ReportItem>(std::move(item));
}

void fill_body(Tablix& tablix, const Cells& cells, const MatrixAxis& rows, const MatrixAxis& columns)
{
    for (const Leaf& column : columns.leaves()) tablix.column_widths.push_back(columns.sizes()[column.index]);
    for (const Leaf& row : rows.leaves()) {
        TablixRow& filled = tablix.rows.emplace_back();
        filled.height = rows.sizes()[row.index];
        for (const Leaf& column : columns.leaves())
            filled.cells.push_back({in_style(cells[row.index][column.index], row, column), 1, 1});
    }
}

// One item across all headers.
void fill_corner(Reading& in, const Element& matrix, Tablix& tablix, const MatrixAxis& rows,
                 const MatrixAxis& columns)
{
    const std::size_t height = columns.header_sizes().size(), width = rows.header_sizes().size();
    if (height == 0 || width == 0) return;
    if (height * width > most_cells) throw wrong(matrix, u"la matriz es demasiado grande");
    tablix.corner.assign(height, std::vector<TablixCell>(width));
    const Element* const corner = in.child(matrix, u"Corner");
    if (corner == nullptr) return;
    tablix.corner[0][0] = {
        read_content(in, *corner, {extent(rows.header_sizes()), extent(columns.header_sizes())}),
        static_cast<int>(width), static_cast<int>(height)};
}

} // namespace

void read_matrix(Reading& in, const Element& element, ReportItem& item)
{
    Tablix tablix = read_data_region(in, element);
    MatrixAxis rows(in, element, row_axis), columns(in, element, column_axis);
    if (rows.leaves().size() * columns.leaves().size() > most_cells)
        throw wrong(element, u"la matriz es demasiado grande");
    fill_body(tablix, read_cells(in, element, rows, columns), rows, columns);
    fill_corner(in, element, tablix, rows, columns);
    tablix.row_members = rows.take_members();
    tablix.column_members = columns.take_members();
    tablix.repeat_column_headers = tablix.repeat_row_headers = true;
    set_content(item, std::move(tablix));
}

} // namespace tolvex::printing
