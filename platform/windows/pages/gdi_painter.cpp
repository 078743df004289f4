#include "platform/windows/pages/gdi_painter.hpp"

#include "platform/pages/typeface.hpp"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace tolvex {

using namespace pages;

namespace {

LONG whole(double number)
{
    constexpr double most = 1 << 26; // the system draws nothing beyond
    return std::isnan(number) ? 0 : static_cast<LONG>(std::lround(std::clamp(number, -most, most)));
}

LONG width(const RECT& box) { return box.right - box.left; }
LONG height(const RECT& box) { return box.bottom - box.top; }
COLORREF rgb(Color color) { return RGB(color.red, color.green, color.blue); }

// --- text ---

// Some characters in a row that one face draws, and where they begin in the text.
struct Run
{
    const Face* face = nullptr;
    Text characters;
    std::vector<double> edges; // in points: where each begins, and where the last one ends
};

std::vector<Run> runs_of(const TextMark& mark)
{
    std::vector<Run> runs;
    const Typeface& used = typeface(mark.font);
    double edge = 0;
    for (const char16_t c : mark.text) {
        const Drawn drawn = used.drawn(c);
        if (!drawn.face) continue;
        if (runs.empty() || runs.back().face != drawn.face) runs.push_back({drawn.face, {}, {edge}});
        edge += drawn.face->width(drawn.character) * mark.font.size / 1000;
        if (drawn.character == u' ') edge += mark.word_spacing;
        runs.back().characters += drawn.character;
        runs.back().edges.push_back(edge);
    }
    return runs;
}

// --- lines ---

GdiObject<HPEN> new_pen(const LineMark& line, double scale)
{
    const LOGBRUSH brush{BS_SOLID, rgb(line.color), 0};
    const auto thickness = static_cast<DWORD>(std::max(whole(line.width * scale), 1L));
    return GdiObject<HPEN>(ExtCreatePen(PS_GEOMETRIC | PS_SOLID | PS_ENDCAP_FLAT | PS_JOIN_MITER, thickness,
                                        &brush, 0, nullptr));
}

// A stroke and the blank after it, in points: the pattern of the PDF file, whole multiples of the width.
struct DashPattern
{
    double stroke, blank;
};

DashPattern pattern_of(const LineMark& line)
{
    const double unit = std::clamp(std::round(line.width), 1.0, 30.0);
    return {line.dashes == Dashes::dotted ? unit : 3 * unit, unit};
}

// --- pictures ---

bool can_blend(HDC device)
{
    return GetDeviceCaps(device, TECHNOLOGY) == DT_RASDISPLAY ||
           GetDeviceCaps(device, SHADEBLENDCAPS) & SB_PIXEL_ALPHA;
}

void blend_onto(HDC device, const RECT& place, const Canvas32& picture)
{
    constexpr BLENDFUNCTION over{AC_SRC_OVER, 0, 255, AC_SRC_ALPHA};
    AlphaBlend(device, place.left, place.top, width(place), height(place), picture.device(), 0, 0,
               picture.size().cx, picture.size().cy, over);
}

void copy_onto(HDC device, const RECT& place, const Canvas32& picture)
{
    const SIZE size = picture.size();
    const BITMAPINFO format = bitmap_format(size);
    SetStretchBltMode(device, COLORONCOLOR);
    StretchDIBits(device, place.left, place.top, width(place), height(place), 0, 0, size.cx, size.cy,
                  picture.bytes(), &format, DIB_RGB_COLORS, SRCCOPY);
}

} // namespace

GdiPainter::GdiPainter(HDC device, POINT corner, GdiFonts& fonts, GdiPictures& pictures)
    : device_(device), corner_(corner), fonts_(fonts), pictures_(pictures)
{
    GetClipBox(device, &clip_);
}

void GdiPainter::paint(const Page& page) { paint_first(page, page.marks.size()); }

void GdiPainter::paint_first(const Page& page, std::size_t marks)
{
    const SavedState state(device_);
    SetBkMode(device_, TRANSPARENT);
    SetTextAlign(device_, TA_BASELINE | TA_LEFT | TA_NOUPDATECP);
    for (std::size_t i = 0; i < marks; ++i) {
        if (!is_seen(page.marks[i])) continue;
        std::visit(
            [&](const auto& mark) {
                using Kind = std::decay_t<decltype(mark)>;
                if constexpr (std::is_same_v<Kind, PictureMark>)
                    draw(mark, page, i);
                else if constexpr (!std::is_same_v<Kind, LinkMark> && !std::is_same_v<Kind, OutlineMark>)
                    draw(mark);
            },
            page.marks[i]);
    }
}

// Lines that run across and texts that do are left out above and below what is painted; others take part
// always.
bool GdiPainter::is_seen(const Mark& mark) const
{
    double top = 0, bottom = 0;
    if (const auto* text = std::get_if<TextMark>(&mark); text && text->angle == 0) {
        top = text->start.y - 2 * text->font.size;
        bottom = text->start.y + text->font.size;
    } else if (const auto* fill = std::get_if<FillMark>(&mark)) {
        top = fill->box.top;
        bottom = fill->box.bottom();
    } else if (const auto* picture = std::get_if<PictureMark>(&mark)) {
        top = picture->box.top;
        bottom = picture->box.bottom();
    } else {
        return true;
    }
    return pixel({0, top}).y - 1 <= clip_.bottom && pixel({0, bottom}).y + 1 >= clip_.top;
}

POINT GdiPainter::pixel(Point point) const
{
    return {corner_.x + whole(point.x * fonts_.scale()), corner_.y + whole(point.y * fonts_.scale())};
}

RECT GdiPainter::pixels(const Box& box) const
{
    const POINT from = pixel({box.left, box.top}), to = pixel({box.right(), box.bottom()});
    return {from.x, from.y, std::max(to.x, from.x + 1), std::max(to.y, from.y + 1)};
}

void GdiPainter::draw(const FillMark& fill)
{
    const GdiObject<HBRUSH> brush(CreateSolidBrush(rgb(fill.color)));
    const RECT place = pixels(fill.box);
    FillRect(device_, &place, brush.get());
}

void GdiPainter::draw(const LineMark& line)
{
    const GdiObject<HPEN> pen = new_pen(line, fonts_.scale());
    const Selected selected(device_, pen.get());
    if (line.dashes == Dashes::solid)
        draw_stroke(line.from, line.to);
    else
        draw_dashes(line);
}

// Each stroke by itself: drivers do not agree on what the lengths of a pen's pattern are measured in.
void GdiPainter::draw_dashes(const LineMark& line)
{
    const double width = line.to.x - line.from.x, height = line.to.y - line.from.y,
                 length = std::hypot(width, height);
    const DashPattern pattern = pattern_of(line);
    const auto point = [&](double along) {
        return Point{line.from.x + width * along / length, line.from.y + height * along / length};
    };
    constexpr double longest = 14'400; // of any page
    for (double begin = 0; begin < std::min(length, longest); begin += pattern.stroke + pattern.blank)
        draw_stroke(point(begin), point(std::min(begin + pattern.stroke, length)));
}

void GdiPainter::draw_stroke(Point from, Point to)
{
    const POINT begin = pixel(from), end = pixel(to);
    MoveToEx(device_, begin.x, begin.y, nullptr);
    LineTo(device_, end.x, end.y);
}

// Each character has the place that it has in the PDF file, however the device rounds its width.
void GdiPainter::draw(const TextMark& text)
{
    const double scale = fonts_.scale(), radians = text.angle * std::numbers::pi / 180;
    SetTextColor(device_, rgb(text.color));
    for (const Run& run : runs_of(text)) {
        const Selected selected(device_, fonts_.font(*run.face, text.font, text.angle));
        const double begin = run.edges.front();
        std::vector<INT> advances;
        for (std::size_t i = 0; i < run.characters.size(); ++i)
            advances.push_back(whole((run.edges[i + 1] - begin) * scale) -
                               whole((run.edges[i] - begin) * scale));
        const POINT start =
            pixel({text.start.x + std::cos(radians) * begin, text.start.y + std::sin(radians) * begin});
        ExtTextOutW(device_, start.x, start.y, 0, nullptr, wide(run.characters),
                    static_cast<UINT>(run.characters.size()), advances.data());
    }
}

void GdiPainter::draw(const PictureMark& mark, const Page& page, std::size_t marks_below)
{
    if (mark.box.width <= 0 || mark.box.height <= 0) return;
    const RECT place = pixels(mark.box), visible = pixels(mark.visible);
    const GdiPicture& picture = pictures_.picture(mark.picture, {width(place), height(place)});
    const SavedState state(device_);
    IntersectClipRect(device_, visible.left, visible.top, visible.right, visible.bottom);
    if (picture.is_opaque())
        copy_onto(device_, place, picture.canvas());
    else if (can_blend(device_))
        blend_onto(device_, place, picture.canvas());
    else
        blend_in_memory(picture, place, page, marks_below);
}

// For devices that only cover: what lies below is painted in memory, the picture over it, and both come to
// the device as one.
void GdiPainter::blend_in_memory(const GdiPicture& picture, const RECT& place, const Page& page,
                                 std::size_t marks_below)
{
    constexpr double most_pixels = 16'000'000;
    const double all_pixels = static_cast<double>(width(place)) * height(place);
    const double share = std::min(std::sqrt(most_pixels / all_pixels), 1.0);
    const auto shared = [&](LONG pixels) { return std::max(whole(pixels * share), 1L); };
    const Canvas32 ground({shared(width(place)), shared(height(place))});
    const RECT whole_ground{0, 0, ground.size().cx, ground.size().cy};
    FillRect(ground.device(), &whole_ground, static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH)));
    GdiFonts fonts(fonts_.scale() * share);
    GdiPictures pictures;
    GdiPainter(ground.device(),
               {whole((corner_.x - place.left) * share), whole((corner_.y - place.top) * share)}, fonts,
               pictures)
        .paint_first(page, marks_below);
    blend_onto(ground.device(), whole_ground, picture.canvas());
    copy_onto(device_, place, ground);
}

} // namespace tolvex
