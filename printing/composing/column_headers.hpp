// The headers above the columns of a table, and its corner.
#pragma once

#include "printing/composing/tablix_plan.hpp"

namespace tolvex::printing {

class ColumnHeaders
{
public:
    ColumnHeaders(Canvas& canvas, const Tablix& tablix, const TablixPlan& plan, double left)
        : canvas_(canvas), tablix_(tablix), plan_(plan), left_(left)
    {}

    double height();
    // Places them from y on; where they end.
    double place(double y);

private:
    // A header or a corner cell, and the levels of headers that it takes.
    struct Cell
    {
        const ReportItem* item;
        const Scope* scope;
        double left, width;
        std::size_t level, levels;
    };
    void collect();
    void collect_corner();
    void measure();
    Cell cell_of(const HeaderInstance& header) const;

    Canvas& canvas_;
    const Tablix& tablix_;
    const TablixPlan& plan_;
    double left_;
    std::vector<Cell> cells_;
    std::vector<double> heights_; // of the levels
    bool measured_ = false;
};

} // namespace tolvex::printing
