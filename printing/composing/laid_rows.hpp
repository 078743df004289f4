// The rows of a table measured: what stands in their cells, and how high that makes them.
#pragma once

#include "printing/composing/place_text.hpp"
#include "printing/composing/tablix_plan.hpp"

#include <span>

namespace tolvex::printing {

// A cell about to be placed: left and width are settled, its text is broken into lines.
struct LaidCell
{
    const ReportItem* item = nullptr;
    const Scope* scope = nullptr;
    double left = 0, width = 0, height = 0; // height: what its row has by the layout
    bool hidden = false, may_span_pages = false;
    std::optional<LaidText> text; // of a text box
    Strip::Behind behind;         // the place of its background, once the text stands
    TablixPlan::CellScope own;
};

struct LaidRow
{
    std::deque<LaidCell> cells;
    double height = 0;
    bool may_span_pages = false; // a cell's height is known only when it is placed
};

class LaidRows
{
public:
    LaidRows(Canvas& canvas, const Tablix& tablix, const TablixPlan& plan, double left)
        : canvas_(canvas), tablix_(tablix), plan_(plan), left_(left)
    {}

    int count() const { return static_cast<int>(plan_.rows().size()); }
    const RowInstance& instance(int i) const { return plan_.rows()[static_cast<std::size_t>(i)]; }
    double height(int i);
    // For placing: it is measured anew if it is asked for again.
    LaidRow take(int i);
    // The headers that begin beside a row.
    std::span<const HeaderInstance> headers_from(int i) const;

    // The height that belongs on one page from a row on: header rows with what follows them, footer rows with
    // what stands before them, groups that want to be together; as much of it as a page has room for.
    double wanted_height(int i);

private:
    LaidRow laid(int i);
    void add_cell(LaidRow& row, const RowInstance& instance, std::size_t column);
    void add_header(LaidRow& row, const HeaderInstance& header, double height);
    double laid_height(LaidCell& cell);
    double width_of_span(std::size_t column, int first, int end) const;

    Canvas& canvas_;
    const Tablix& tablix_;
    const TablixPlan& plan_;
    double left_;
    std::unordered_map<int, LaidRow> known_;
};

} // namespace tolvex::printing
