#include "printing/composing/column_headers.hpp"
#include "printing/composing/laid_rows.hpp"

#include <algorithm>

namespace tolvex::printing {

namespace {

using pages::Box;

class TablixPlacer : private Repeated
{
public:
    TablixPlacer(Canvas& canvas, const ReportItem& item, const Box& box, const Setting& setting)
        : canvas_(canvas), item_(item), tablix_(*std::get<std::shared_ptr<const Tablix>>(item.content)),
          setting_(setting), look_(canvas.look(item, canvas.environment(setting.scope))), left_(box.left),
          plan_(canvas, item, setting.scope), rows_(canvas, tablix_, plan_, left_),
          column_headers_(canvas, tablix_, plan_, left_)
    {
        setting_.alone &= look_.is_plain(); // its own frame is drawn at the end, on all of its pages
    }

    double placed_from(double y)
    {
        const ScopeEnvironment here = canvas_.environment(&plan_.region());
        y = break_before(strip(), tablix_.page_break, y, here, item_.place);
        if (row_count() > 0 && row(0).new_page && !strip().is_fresh(y)) y = strip().break_page(y);
        if (tablix_.keep_together && !strip().is_rehearsal()) y = strip().make_room(y, height_up_to_a_page());
        const Strip::Behind behind = strip().behind(top_ = y);
        put_marks_of(canvas_, item_, {left_, y, plan_.width(), item_.height}, setting_.scope);
        const Text words =
            plan_.region().empty() ? property(tablix_.no_rows_message, here, item_.place) : u"";
        y = words.empty() ? place_rows(y) : place_words(words, y);
        const Box frame{left_, top_, words.empty() ? plan_.width() : item_.width, y - top_};
        if (look_.background) strip().put_behind(behind, {frame, *look_.background});
        put_borders(canvas_, look_, frame);
        if (plan_.ends_page()) y = strip().next_page(y);
        return break_after(strip(), tablix_.page_break, y, here, item_.place);
    }

private:
    Strip& strip() const { return canvas_.strip(); }
    int row_count() const { return rows_.count(); }
    const RowInstance& row(int i) const { return rows_.instance(i); }

    double place_words(const Text& words, double y)
    {
        const LaidText laid = lay_words(canvas_, item_, words, item_.width, setting_.scope);
        const double height = std::max(laid.height, item_.height);
        y = strip().make_room(y, height);
        return std::max(y + height, put_text(canvas_, laid, {left_, y, item_.width, height}));
    }

    double place_rows(double y)
    {
        y = strip().make_room(y, column_headers_.height() + (row_count() > 0 ? wanted_height(0) : 0));
        y = kept_top_ = column_headers_.place(y);
        const Strip::Repeating repeating(strip(), *this, y);
        for (int i = 0; i < row_count() && !strip().has_enough(y - top_); ++i) {
            current_ = i;
            if (i > 0) y = row_top(i, y);
            if (row(i).resets_page_number) strip().reset_page_number(y);
            y = place_row(i, y);
            if (setting_.alone && headers_.empty()) strip().complete_before(y);
        }
        return y;
    }

    // Where a row begins: here, or on the next page when it, and what must not be parted from it, has no
    // room. A row stays under its header rows, which have looked for room with it.
    double row_top(int i, double y)
    {
        y = strip().go_on(y);
        if (row(i).new_page) return kept_top_ = strip().is_fresh(y) ? y : strip().break_page(y);
        const bool follows_header = row(i - 1).member->keep_with_group == KeepWithGroup::after;
        if (follows_header && y - kept_top_ <= strip().page_height() / 2) return y;
        return kept_top_ = strip().make_room(y, wanted_height(i));
    }

    double wanted_height(int i) { return strip().is_rehearsal() ? 0 : rows_.wanted_height(i); }

    double height_up_to_a_page()
    {
        double height = column_headers_.height();
        for (int i = 0; i < row_count() && height <= strip().page_height(); ++i) height += rows_.height(i);
        return height <= strip().page_height() ? height : 0;
    }

    // What stands again on each page: headers, but never so many that a page is left without rows.
    double place_again(double y) override
    {
        const double room = strip().page_height() / 2;
        double used = tablix_.repeat_column_headers ? column_headers_.height() : 0;
        if (used > room) return y;
        if (used > 0) y = column_headers_.place(y);
        std::vector<int> rows;
        for (int i = row(current_).repeated; i >= 0; i = row(i).repeated) rows.push_back(i);
        for (auto i = rows.rbegin(); i != rows.rend(); ++i) {
            LaidRow again = rows_.take(*i);
            used += again.height;
            if (used > room) break;
            y = place_cells(again, y);
        }
        return y;
    }

    // --- a row -------------------------------------------------------------------------------------------

    double place_row(int i, double y)
    {
        LaidRow laid = rows_.take(i);
        begin_headers(i, y);
        grow_for_headers(i, y, laid);
        const int level = canvas_.outline_level;
        put_group_labels(row(i), y);
        y = place_cells(laid, y);
        canvas_.outline_level = level;
        end_headers(i, y);
        return y;
    }

    double place_cells(LaidRow& row, double y)
    {
        const bool whole = !row.may_span_pages && row.height <= strip().rest_of_page(y);
        const double bottom = whole ? y + row.height : place_flowing(row, y);
        for (LaidCell& cell : row.cells) {
            const Box box{cell.left, y, cell.width, bottom - y};
            if (cell.hidden)
                record_hidden(canvas_, *cell.item, y, cell.scope);
            else if (cell.text && whole)
                place_text(canvas_, *cell.text, box);
            else if (cell.text)
                put_frame(canvas_, *cell.text, box, cell.behind);
            else if (whole)
                place_item(canvas_, *cell.item, box, {cell.scope, false});
        }
        return bottom;
    }

    // What stands in the cells of a row that goes on over pages tells where the row ends; its texts come
    // last, and their frames when that is known.
    double place_flowing(LaidRow& row, double y)
    {
        const bool alone = setting_.alone && row.cells.size() == 1 && headers_.empty();
        double bottom = y + row.height;
        for (const LaidCell& cell : row.cells) {
            if (cell.hidden || cell.text) continue;
            const Box box{cell.left, y, cell.width, cell.may_span_pages ? cell.height : row.height};
            bottom = std::max(bottom, place_item(canvas_, *cell.item, box, {cell.scope, alone}));
        }
        const double height = bottom - y;
        for (LaidCell& cell : row.cells) {
            if (cell.hidden || !cell.text) continue;
            cell.behind = strip().behind(y);
            bottom = std::max(bottom, put_text(canvas_, *cell.text, {cell.left, y, cell.width, height}));
        }
        return bottom;
    }

    // Groups that begin here, each nested under those around it; so is what stands in the row.
    void put_group_labels(const RowInstance& instance, double y)
    {
        for (const Scope* scope = instance.scope; scope != plan_.region().parent; scope = scope->parent)
            if (scope->group && !scope->group->document_map_label.is_empty()) ++canvas_.outline_level;
        int level = canvas_.outline_level - static_cast<int>(instance.group_labels.size());
        for (const Scope* scope : instance.group_labels) {
            const Text label =
                property(scope->group->document_map_label, canvas_.environment(scope), item_.place);
            if (!label.empty()) strip().put(pages::OutlineMark{label, level++, y});
        }
    }

    // --- headers beside several rows ---------------------------------------------------------------------

    struct OpenHeader
    {
        double top = 0;
        std::optional<LaidText> text;
    };

    bool is_beside_several(const HeaderInstance& header) const
    {
        if (!header.member->header->content || header.last <= header.first) return false;
        const ReportItem& content = *header.member->header->content;
        return !is_true(content.hidden, canvas_.environment(header.scope), content.place);
    }

    void begin_headers(int i, double y)
    {
        for (const HeaderInstance& header : rows_.headers_from(i)) {
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
            row.height = std::max(row.height, height_with(*open.text, 0) - (y - open.top));
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

    Canvas& canvas_;
    const ReportItem& item_;
    const Tablix& tablix_;
    Setting setting_;
    const Look look_;
    double left_, top_ = 0;
    TablixPlan plan_;
    LaidRows rows_;
    ColumnHeaders column_headers_;
    std::map<const HeaderInstance*, OpenHeader> headers_; // beside the rows that are being placed
    double kept_top_ = 0;                                 // where the rows that are kept together begin
    int current_ = 0;
};

} // namespace

double place_tablix(Canvas& canvas, const ReportItem& item, const Box& box, const Setting& setting)
{
    return TablixPlacer(canvas, item, box, setting).placed_from(box.top);
}

} // namespace tolvex::printing
