#include "platform/pages/page_stack.hpp"

#include <algorithm>
#include <cmath>

namespace tolvex::pages {

namespace {

int pixels(double points, double scale) { return std::max(static_cast<int>(std::lround(points * scale)), 1); }

} // namespace

PageStack::PageStack(const std::vector<Page>& pages, double pixels_per_point, int gap, int least_width)
    : width_(least_width), height_(gap)
{
    for (const Page& page : pages) {
        boxes_.push_back(
            {0, height_, pixels(page.width, pixels_per_point), pixels(page.height, pixels_per_point)});
        width_ = std::max(width_, boxes_.back().width + 2 * gap);
        height_ += boxes_.back().height + gap;
    }
    for (PixelBox& box : boxes_) box.left = (width_ - box.width) / 2;
}

std::size_t PageStack::page_at(int y) const
{
    const auto found = std::partition_point(boxes_.begin(), boxes_.end(),
                                            [y](const PixelBox& box) { return box.bottom() <= y; });
    const auto index = static_cast<std::size_t>(found - boxes_.begin());
    return std::min(index, boxes_.empty() ? 0 : boxes_.size() - 1);
}

} // namespace tolvex::pages
