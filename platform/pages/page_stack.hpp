// Pages one below the other, as a reader scrolls through them: where each lies, in whole pixels.
#pragma once

#include "platform/pages/page.hpp"

namespace tolvex::pages {

struct PixelBox
{
    int left = 0, top = 0, width = 0, height = 0;

    int right() const { return left + width; }
    int bottom() const { return top + height; }
};

class PageStack
{
public:
    // With a gap around each page. It is as wide as the widest page, or as what shows it if that is wider.
    PageStack(const std::vector<Page>& pages, double pixels_per_point, int gap, int least_width);

    int width() const { return width_; }
    int height() const { return height_; }
    std::size_t count() const { return boxes_.size(); }
    // Throws std::out_of_range for a page that is not there.
    const PixelBox& box(std::size_t page) const { return boxes_.at(page); }
    // The page at that height, or the one after the gap that is there; the last one for what lies below it.
    std::size_t page_at(int y) const;

private:
    std::vector<PixelBox> boxes_;
    int width_ = 0, height_ = 0;
};

} // namespace tolvex::pages
