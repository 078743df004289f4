// Paints pages on a device: the screen, a printer, a picture in memory. They look as their PDF file does.
#pragma once

#include "platform/pages/page.hpp"
#include "platform/windows/pages/gdi_fonts.hpp"
#include "platform/windows/pages/gdi_pictures.hpp"

namespace tolvex {

class GdiPainter
{
public:
    // The upper left corner of the page comes to lie at `corner`; the scale is that of the fonts.
    GdiPainter(HDC device, POINT corner, GdiFonts& fonts, GdiPictures& pictures);

    // All marks that lie where the device lets itself be drawn on; the paper is not painted. Throws Error 5
    // when a picture is damaged.
    void paint(const pages::Page& page);

    // Where a box of the page lies on the device; never empty.
    RECT pixels(const pages::Box& box) const;

private:
    void paint_first(const pages::Page& page, std::size_t marks);
    bool is_seen(const pages::Mark& mark) const;
    POINT pixel(pages::Point point) const;

    void draw(const pages::FillMark& fill);
    void draw(const pages::LineMark& line);
    void draw_dashes(const pages::LineMark& line);
    void draw_stroke(pages::Point from, pages::Point to);
    void draw(const pages::TextMark& text);
    void draw(const pages::PictureMark& mark, const pages::Page& page, std::size_t marks_below);
    void blend_in_memory(const GdiPicture& picture, const RECT& place, const pages::Page& page,
                         std::size_t marks_below);

    const HDC device_;
    const POINT corner_;
    GdiFonts& fonts_;
    GdiPictures& pictures_;
    RECT clip_{};
};

} // namespace tolvex
