#include "printing/composing/column_headers.hpp"
#include "printing/composing/place_text.hpp"

#include <algorithm>
#include <numeric>

namespace tolvex::printing {

namespace {

constexpr double rounding = 0.1; // points by which sums of header sizes differ

double sum(const std::vector<double>& sizes, std::size_t from, std::size_t count)
{
    const auto begin = std::min(sizes.size(), from), end = std::min(sizes.size(), from + count);
    return std::accumulate(sizes.begin() + static_cast<std::ptrdiff_t>(begin),
                           sizes.begin() + static_cast<std::ptrdiff_t>(end), 0.0);
}

} // namespace

double ColumnHeaders::height()
{
    if (!measured_) measure();
    return sum(heights_, 0, heights_.size());
}

double ColumnHeaders::place(double y)
{
    const double end = y + height();
    for (const Cell& cell : cells_)
        place_item(
            canvas_, *cell.item,
            {cell.left, y + sum(heights_, 0, cell.level), cell.width, sum(heights_, cell.level, cell.levels)},
            {cell.scope, false});
    return end;
}

// A level is as high as the highest text that it holds alone.
void ColumnHeaders::measure()
{
    measured_ = true;
    heights_ = plan_.column_header_heights();
    collect_corner();
    collect();
    for (const Cell& cell : cells_) {
        if (cell.levels != 1 || cell.level >= heights_.size()) continue;
        if (!std::holds_alternative<Textbox>(cell.item->content)) continue;
        if (is_true(cell.item->hidden, canvas_.environment(cell.scope), cell.item->place)) continue;
        double& height = heights_[cell.level];
        const pages::Box box{0, 0, cell.width, height};
        height = std::max(height, height_with(lay_text(canvas_, *cell.item, box, cell.scope), height));
    }
}

void ColumnHeaders::collect_corner()
{
    const std::vector<double>& widths = plan_.row_header_widths();
    for (std::size_t level = 0; level < tablix_.corner.size() && level < heights_.size(); ++level)
        for (std::size_t i = 0; i < tablix_.corner[level].size() && i < widths.size(); ++i) {
            const TablixCell& cell = tablix_.corner[level][i];
            if (!cell.content) continue;
            cells_.push_back({cell.content.get(), &plan_.region(), left_ + sum(widths, 0, i),
                              sum(widths, i, static_cast<std::size_t>(cell.column_span)), level,
                              static_cast<std::size_t>(cell.row_span)});
        }
}

void ColumnHeaders::collect()
{
    for (const HeaderInstance& header : plan_.column_headers())
        if (header.member->header->content && header.last >= header.first) cells_.push_back(cell_of(header));
}

ColumnHeaders::Cell ColumnHeaders::cell_of(const HeaderInstance& header) const
{
    const ColumnInstance& first = plan_.columns()[static_cast<std::size_t>(header.first)];
    const ColumnInstance& last = plan_.columns()[static_cast<std::size_t>(header.last)];
    Cell cell{header.member->header->content.get(),
              header.scope,
              left_ + plan_.row_headers_width() + first.left,
              last.left + last.width - first.left,
              0,
              0};
    double reached = 0;
    for (const double height : plan_.column_header_heights()) {
        if (reached + rounding < header.offset)
            ++cell.level;
        else if (reached + rounding < header.offset + header.member->header->size)
            ++cell.levels;
        reached += height;
    }
    return cell;
}

} // namespace tolvex::printing
