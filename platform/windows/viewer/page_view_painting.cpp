// What is seen of the pages, painted in memory first so that nothing flickers.
#include "platform/windows/viewer/page_view.hpp"

#include <algorithm>
#include <cmath>

namespace tolvex {

namespace {

constexpr int shadow_at_96 = 3;
constexpr COLORREF desk = RGB(176, 180, 186), shadow = RGB(132, 137, 144), edge = RGB(116, 121, 128),
                   paper = RGB(255, 255, 255), found_color = RGB(255, 236, 120),
                   current_color = RGB(255, 176, 72), fault = RGB(176, 0, 0);

void fill(HDC device, const RECT& area, COLORREF color)
{
    const GdiObject<HBRUSH> brush(CreateSolidBrush(color));
    FillRect(device, &area, brush.get());
}

RECT moved(RECT area, int by) { return {area.left + by, area.top + by, area.right + by, area.bottom + by}; }

RECT grown(RECT area, int by) { return {area.left - by, area.top - by, area.right + by, area.bottom + by}; }

} // namespace

void PageView::paint()
{
    PAINTSTRUCT painting{};
    const HDC device = BeginPaint(handle_, &painting);
    const RECT& dirty = painting.rcPaint;
    if (device && dirty.right > dirty.left && dirty.bottom > dirty.top) paint_seen(device, dirty);
    EndPaint(handle_, &painting);
}

void PageView::paint_seen(HDC device, const RECT& dirty)
{
    const Canvas32 canvas({dirty.right - dirty.left, dirty.bottom - dirty.top});
    fill(canvas.device(), {0, 0, canvas.size().cx, canvas.size().cy}, desk);
    const int margin = pixels(shadow_at_96);
    for (std::size_t page = stack_.page_at(scrolled_.y + dirty.top - margin); page < stack_.count(); ++page) {
        const POINT corner = corner_of(page);
        if (corner.y - margin >= dirty.bottom) break;
        paint_page(canvas.device(), page, {corner.x - dirty.left, corner.y - dirty.top});
    }
    BitBlt(device, dirty.left, dirty.top, canvas.size().cx, canvas.size().cy, canvas.device(), 0, 0, SRCCOPY);
}

void PageView::paint_page(HDC device, std::size_t page, POINT corner)
{
    const pages::PixelBox& box = stack_.box(page);
    const RECT sheet{corner.x, corner.y, corner.x + box.width, corner.y + box.height};
    fill(device, moved(sheet, pixels(shadow_at_96)), shadow);
    fill(device, grown(sheet, 1), edge);
    fill(device, sheet, paper);
    const SavedState state(device);
    IntersectClipRect(device, sheet.left, sheet.top, sheet.right, sheet.bottom);
    try {
        GdiPainter(device, corner, *fonts_, pictures_).paint(pages_[page]);
    } catch (const Error& error) {
        SetTextColor(device, fault);
        RECT place = grown(sheet, -pixels(shadow_at_96) * 2);
        const Text words = u"Esta página no se puede mostrar completa: " + error.description();
        DrawTextW(device, wide(words), -1, &place, DT_WORDBREAK | DT_NOPREFIX);
    }
    paint_found(device, page, corner);
}

// Like a marker's ink, which leaves the letters black.
void PageView::paint_found(HDC device, std::size_t page, POINT corner) const
{
    const auto ends_before = [=](const pages::Found& found) { return found.back().page < page; };
    auto found = std::partition_point(found_.begin(), found_.end(), ends_before);
    const SavedState state(device);
    SetROP2(device, R2_MASKPEN);
    SelectObject(device, GetStockObject(NULL_PEN));
    for (; found != found_.end() && found->front().page <= page; ++found) {
        const bool is_current = found - found_.begin() == static_cast<std::ptrdiff_t>(current_found_);
        const GdiObject<HBRUSH> brush(CreateSolidBrush(is_current ? current_color : found_color));
        const Selected selected(device, brush.get());
        for (const pages::FoundPart& part : *found) {
            if (part.page != page) continue;
            const auto& text = std::get<pages::TextMark>(pages_[page].marks[part.mark]);
            std::array<POINT, 4> corners{};
            std::ranges::transform(pages::area(text, part.first, part.count), corners.begin(),
                                   [&](pages::Point at) {
                                       return POINT{corner.x + std::lround(at.x * scale()),
                                                    corner.y + std::lround(at.y * scale())};
                                   });
            Polygon(device, corners.data(), static_cast<int>(corners.size()));
        }
    }
}

} // namespace tolvex
