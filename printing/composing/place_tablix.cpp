#include "core/errors.hpp"
#include "printing/composing/place_text.hpp"
#include "printing/composing/tablix_plan.hpp"

#include <algorithm>
#include <numeric>
#include <span>

namespace tolvex::printing {

namespace {

using pages::Box;

bool may_span_pages(const ReportItem& item)
{
    if (std::holds_alternative<Subreport>(item.content)) return true;
    if (std::holds_alternative<std::shared_ptr<const Tablix>>(item.content)) return true;
    const auto* rectangle = std::get_if<Rectangle>(&item.content);
    return rectangle && std::any_of(rectangle->items.begin(), rectangle->items.end(), may_span_pages);
}

// A cell about to be placed: left and width are settled, its text is broken into lines.
struct LaidCell
{
    const ReportItem* item = nullptr;
    const Scope* scope = nullptr;
    double left = 0, width = 0, height = 0; // height: what its rows have by the layout
    bool single_row = true, hidden = false;
    std::optional<LaidText> text; // of a text box
    TablixPlan::CellScope own;
};

// A row whose cells are measured.
struct LaidRow
{
    std::deque<LaidCell> cells;
    double height = 0;
    bool spans_pages = false;
};

class TablixPlacer : private Repeated
{
public:
    TablixPlacer(Canvas& canvas, const ReportItem& item, const Box& box, const Setting& setting)
        : canvas_(canvas), item_(item), tablix_(*std::get<std::shared_ptr<const Tablix>>(item.content)),
          setting_(setting), left_(box.left), plan_(canvas, item, setting.scope)
    {
        // Its own frame is drawn at the end, on all of its pages.
        setting_.alone &= canvas.look(item, canvas.environment(setting.scope)).is_plain();
    }

    double placed_from(double y)
    {
        const ScopeEnvironment here = canvas_.environment(&plan_.region());
        y = break_before(strip(), tablix_.page_break, y, here, item_.place);
        if (plan_.region().empty())
            if (const Text words = property(tablix_.no_rows_message, here, item_.place); !words.empty())
                return place_notice(canvas_, {left_, y, item_.width, item_.height}, words);
        if (tablix_.keep_together && !strip().is_rehearsal()) y = strip().make_room(y, height_up_to_a_page());
        top_ = y;
        put_marks_of(canvas_, item_, {left_, y, plan_.width(), item_.height}, setting_.scope);
        y = place_rows(y);
        put_borders(canvas_, canvas_.look(item_, here), {left_, top_, plan_.width(), y - top_});
        if (plan_.ends_page()) y = strip().next_page(y);
        return break_after(strip(), tablix_.page_break, y, here, item_.place);
    }

private:
    Strip& strip() const { return canvas_.strip(); }
    int row_count() const { return static_cast<int>(plan_.rows().size()); }
    const RowInstance& row(int i) const { return plan_.rows()[static_cast<std::size_t>(i)]; }

    double place_rows(double y)
    {
        y = strip().make_room(y, column_headers_height() + (row_count() > 0 ? together(0) : 0));
        y = place_column_headers(y);
        for (int i = 0; i < row_count() && !strip().has_enough(y - top_); ++i) {
            current_ = i;
            y = row_top(i, y);
            y = place_row(i, y);
            if (setting_.alone && headers_.empty()) strip().complete_before(y);
        }
        return y;
    }

    // Where a row begins: here, or on the next page when it, and what must not be parted from it, has no
    // room.
    double row_top(int i, double y)
    {
        const Strip::Repeating repeating(strip(), *this);
        if (row(i).new_page && i > 0 && !strip().is_fresh(y)) y = strip().break_page(y);
        if (row(i).resets_page_number) strip().reset_page_number(y);
        const double kept = kept_together(i);
        return strip().make_room(y,
                                 kept <= strip().page_height() ? std::max(kept, together(i)) : together(i));
    }

    // The height of a row with the header rows above or footer rows below that belong on its page.
    double together(int i)
    {
        double height = laid(i).height;
        int last = i;
        while (last + 1 < row_count() && row(last).member->keep_with_group == KeepWithGroup::after)
            height += laid(++last).height;
        while (last + 1 < row_count() && row(last + 1).member->keep_with_group == KeepWithGroup::before)
            height += laid(++last).height;
        return height <= strip().page_height() ? height : laid(i).height;
    }

    // The height of the group that begins at a row, when it wants to be on one page; one higher than a page
    // is measured no further.
    double kept_together(int i)
    {
        double height = 0;
        const int end = i + row(i).kept_rows;
        if (end - i < 2) return 0;
        for (int at = i; at < end && height <= strip().page_height(); ++at) height += laid(at).height;
        return height;
    }

    double height_up_to_a_page()
    {
        double height = column_headers_height();
        for (int i = 0; i < row_count() && height <= strip().page_height(); ++i) height += laid(i).height;
        return height <= strip().page_height() ? height : 0;
    }

    // --- what stands again on each page ------------------------------------------------------------------

    double place_again(double y) override
    {
        if (tablix_.repeat_column_headers) y = place_column_headers(y);
        std::vector<int> rows;
        for (int i = row(current_).repeated; i >= 0; i = row(i).repeated) rows.push_back(i);
        double used = 0;
        for (auto i = rows.rbegin(); i != rows.rend(); ++i) {
            LaidRow again = lay_row(*i);
            used += again.height;
            if (used > strip().page_height() / 2) break; // headers never leave a page without rows
            y = place_laid(again, y);
        }
        return y;
    }

    // --- rows --------------------------------------------------------------------------------------------

    LaidRow& laid(int i)
    {
        const auto known = laid_.find(i);
        if (known != laid_.end()) return known->second;
        return laid_.emplace(i, lay_row(i)).first->second;
    }

    LaidRow lay_row(int i)
    {
        const RowInstance& instance = row(i);
        const TablixRow& body_row = tablix_.rows[static_cast<std::size_t>(instance.row)];
        LaidRow laid;
        laid.height = body_row.height;
        for (std::size_t at = 0; at < plan_.columns().size(); ++at) {
            const ColumnInstance& column = plan_.columns()[at];
            const TablixCell& cell = body_row.cells[static_cast<std::size_t>(column.column)];
            if (!cell.content) continue;
            LaidCell& own = laid.cells.emplace_back();
            own.item = &*cell.content;
            own.left = left_ + plan_.row_headers_width() + column.left;
            own.width = width_of_span(at, cell.column_span);
            own.height = height_of_span(instance.row, cell.row_span);
            own.single_row = cell.row_span == 1;
            own.scope = plan_.cell_scope(instance, column, own.own);
        }
        for (const HeaderInstance& header : headers_from(i))
            if (header.last == i) lay_header(header, laid, body_row.height);
        for (LaidCell& cell : laid.cells) lay_cell(cell, laid);
        return laid;
    }

    // The headers that begin beside a row.
    std::span<const HeaderInstance> headers_from(int i) const
    {
        const auto& all = plan_.row_headers();
        const auto range = std::ranges::equal_range(all, i, {}, &HeaderInstance::first);
        return {range.begin(), range.end()};
    }

    // The header of one row is a cell of it.
    void lay_header(const HeaderInstance& header, LaidRow& laid, double height)
    {
        if (!header.member->header->content) return;
        LaidCell& own = laid.cells.emplace_back();
        own.item = &*header.member->header->content;
        own.left = left_ + header.offset;
        own.width = header.member->header->size;
        own.height = height;
        own.scope = header.scope;
    }

    double width_of_span(std::size_t at, int span) const
    {
        double width = 0;
        const int first = plan_.columns()[at].column;
        for (std::size_t i = at; i < plan_.columns().size(); ++i) {
            const ColumnInstance& column = plan_.columns()[i];
            if (column.column < first || column.column >= first + span || (i > at && column.column == first))
                break;
            width += column.width;
        }
        return width;
    }

    double height_of_span(int row, int span) const
    {
        double height = 0;
        const auto end = std::min(tablix_.rows.size(), static_cast<std::size_t>(row + span));
        for (auto i = static_cast<std::size_t>(row); i < end; ++i) height += tablix_.rows[i].height;
        return height;
    }

    void lay_cell(LaidCell& cell, LaidRow& row)
    {
        const ScopeEnvironment here = canvas_.environment(cell.scope);
        if (is_true(cell.item->hidden, here, cell.item->place)) {
            cell.hidden = true;
            return;
        }
        const Box box{cell.left, 0, cell.width, cell.height};
        double height = cell.height;
        if (std::holds_alternative<Textbox>(cell.item->content)) {
            cell.text.emplace(lay_text(canvas_, *cell.item, box, cell.scope));
            height = height_with(*cell.text, cell.height);
        } else if (may_span_pages(*cell.item)) {
            row.spans_pages = true;
        } else {
            height = height_of(canvas_, *cell.item, box, {cell.scope, false});
        }
        if (cell.single_row) row.height = std::max(row.height, height);
    }

    double place_row(int i, double y)
    {
        const double top = y;
        LaidRow row_laid = std::move(laid(i));
        laid_.erase(i);
        begin_headers(i, top);
        grow_for_headers(i, top, row_laid);
        const int level = canvas_.outline_level;
        put_group_labels(row(i), top);
        y = place_laid(row_laid, y);
        canvas_.outline_level = level;
        end_headers(i, y);
        return y;
    }

    double place_laid(LaidRow& row, double y)
    {
        if (row.spans_pages) return place_flowing(row, y);
        for (LaidCell& cell : row.cells) place_cell(cell, y, cell.single_row ? row.height : cell.height);
        return y + row.height;
    }

    // Cells that may go on over pages come first: they tell how high the row becomes.
    double place_flowing(LaidRow& row, double y)
    {
        double bottom = y + row.height;
        const bool alone = setting_.alone && row.cells.size() == 1 && headers_.empty();
        {
            const Strip::Repeating repeating(strip(), *this);
            for (const LaidCell& cell : row.cells)
                if (!cell.hidden && may_span_pages(*cell.item)) {
                    const Box box{cell.left, y, cell.width, cell.height};
                    bottom = std::max(bottom, place_item(canvas_, *cell.item, box, {cell.scope, alone}));
                }
        }
        for (LaidCell& cell : row.cells)
            if (cell.hidden || !may_span_pages(*cell.item)) place_cell(cell, y, bottom - y);
        return bottom;
    }

    void place_cell(LaidCell& cell, double y, double height)
    {
        if (cell.hidden) return record_hidden(canvas_, *cell.item, y, cell.scope);
        const Box box{cell.left, y, cell.width, height};
        if (cell.text)
            place_text(canvas_, *cell.text, box);
        else
            place_item(canvas_, *cell.item, box, {cell.scope, false});
    }

    void put_group_labels(const RowInstance& instance, double y)
    {
        for (const TablixMember* member : instance.group_labels) {
            const Scope* scope = instance.scope;
            while (scope && scope->group != &*member->group) scope = scope->parent;
            const Text label =
                property(member->group->document_map_label, canvas_.environment(scope), member->place);
            if (!label.empty()) strip().put(pages::OutlineMark{label, canvas_.outline_level++, y});
        }
    }

    // --- headers beside several rows ---------------------------------------------------------------------

    struct OpenHeader
    {
        double top = 0;
        std::optional<LaidText> text;
    };

    static bool is_beside_several(const HeaderInstance& header)
    {
        return header.member->header->content && header.last > header.first;
    }

    void begin_headers(int i, double y)
    {
        for (const HeaderInstance& header : headers_from(i)) {
            if (!is_beside_several(header)) continue;
            OpenHeader& open = headers_[&header];
            open.top = y;
            const ReportItem& content = *header.member->header->content;
            if (std::holds_alternative<Textbox>(content.content))
                open.text.emplace(lay_text(
                    canvas_, content, {0, 0, header.member->header->size, content.height}, header.scope));
        }
    }

    // The last row beside a header is as high as the header's text still needs.
    void grow_for_headers(int i, double y, LaidRow& row)
    {
        for (const auto& [header, open] : headers_) {
            if (header->last != i || !open.text || strip().page_of(open.top) != strip().page_of(y)) continue;
            row.height = std::max(row.height, open.text->height - (y - open.top));
        }
    }

    void end_headers(int i, double y)
    {
        for (const auto& [header, open] : headers_) {
            if (header->last != i) continue;
            const Box box{left_ + header->offset, open.top, header->member->header->size, y - open.top};
            if (open.text)
                place_text(canvas_, *open.text, box);
            else
                place_item(canvas_, *header->member->header->content, box, {header->scope, false});
        }
        std::erase_if(headers_, [i](const auto& each) { return each.first->last == i; });
    }

    // --- headers above the columns -----------------------------------------------------------------------

    // Which levels of headers one takes, by where it begins and how high it is in the layout.
    struct Levels
    {
        std::size_t first = 0, count = 0;
    };
    Levels levels_of(const HeaderInstance& header) const
    {
        Levels levels;
        double reached = 0;
        for (const double height : plan_.column_header_heights()) {
            if (reached + 0.1 < header.offset)
                ++levels.first;
            else if (reached + 0.1 < header.offset + header.member->header->size)
                ++levels.count;
            reached += height;
        }
        return levels;
    }

    double column_headers_height()
    {
        if (levels_.empty()) measure_column_headers();
        return sum(levels_, 0, levels_.size());
    }

    // A level is as high as the highest text that it holds alone.
    void measure_column_headers()
    {
        levels_ = plan_.column_header_heights();
        for (const HeaderInstance& header : plan_.column_headers()) {
            const Levels levels = levels_of(header);
            if (levels.count != 1 || !header.member->header->content || header.last < header.first) continue;
            grow_level(levels.first, *header.member->header->content, width_of(header), header.scope);
        }
        for (std::size_t r = 0; r < tablix_.corner.size() && r < levels_.size(); ++r)
            for (std::size_t c = 0; c < tablix_.corner[r].size(); ++c) {
                const TablixCell& cell = tablix_.corner[r][c];
                if (!cell.content || cell.row_span != 1) continue;
                grow_level(r, *cell.content, sum(plan_.row_header_widths(), c, cell.column_span),
                           &plan_.region());
            }
    }

    void grow_level(std::size_t level, const ReportItem& content, double width, const Scope* scope)
    {
        if (!std::holds_alternative<Textbox>(content.content)) return;
        const Box box{0, 0, width, levels_[level]};
        levels_[level] =
            std::max(levels_[level], height_with(lay_text(canvas_, content, box, scope), box.height));
    }

    double width_of(const HeaderInstance& header) const
    {
        const ColumnInstance& first = plan_.columns()[static_cast<std::size_t>(header.first)];
        const ColumnInstance& last = plan_.columns()[static_cast<std::size_t>(header.last)];
        return last.left + last.width - first.left;
    }

    double place_column_headers(double y)
    {
        if (column_headers_height() == 0) return y;
        place_corner(y);
        for (const HeaderInstance& header : plan_.column_headers()) {
            if (!header.member->header->content || header.last < header.first) continue;
            const ColumnInstance& first = plan_.columns()[static_cast<std::size_t>(header.first)];
            const Levels levels = levels_of(header);
            const Box box{left_ + plan_.row_headers_width() + first.left, y + sum(levels_, 0, levels.first),
                          width_of(header), sum(levels_, levels.first, levels.count)};
            place_item(canvas_, *header.member->header->content, box, {header.scope, false});
        }
        return y + column_headers_height();
    }

    void place_corner(double y)
    {
        const std::vector<double>& widths = plan_.row_header_widths();
        for (std::size_t r = 0; r < tablix_.corner.size() && r < levels_.size(); ++r)
            for (std::size_t c = 0; c < tablix_.corner[r].size() && c < widths.size(); ++c) {
                const TablixCell& cell = tablix_.corner[r][c];
                if (!cell.content) continue;
                const Box box{left_ + sum(widths, 0, c), y + sum(levels_, 0, r),
                              sum(widths, c, cell.column_span), sum(levels_, r, cell.row_span)};
                place_item(canvas_, *cell.content, box, {&plan_.region(), false});
            }
    }

    static double sum(const std::vector<double>& sizes, std::size_t from, std::size_t count)
    {
        const auto end = std::min(sizes.size(), from + count);
        return std::accumulate(sizes.begin() + static_cast<std::ptrdiff_t>(from),
                               sizes.begin() + static_cast<std::ptrdiff_t>(end), 0.0);
    }

    Canvas& canvas_;
    const ReportItem& item_;
    const Tablix& tablix_;
    Setting setting_;
    double left_, top_ = 0;
    TablixPlan plan_;
    std::unordered_map<int, LaidRow> laid_;
    std::map<const HeaderInstance*, OpenHeader> headers_; // beside the rows that are being placed
    std::vector<double> levels_;                          // heights of the headers above the columns
    int current_ = 0;
};

} // namespace

double place_tablix(Canvas& canvas, const ReportItem& item, const Box& box, const Setting& setting)
{
    return TablixPlacer(canvas, item, box, setting).placed_from(box.top);
}

} // namespace tolvex::printing
