// The fonts that pages are painted with at one scale, made when they are first needed.
#pragma once

#include "platform/pages/face.hpp"
#include "platform/windows/pages/gdi.hpp"

#include <map>
#include <tuple>

namespace tolvex {

class GdiFonts
{
public:
    explicit GdiFonts(double pixels_per_point) : scale_(pixels_per_point) {}

    double scale() const { return scale_; }
    // The face at the font's size and cut, turned clockwise by that many degrees.
    HFONT font(const pages::Face& face, const pages::Font& font, double angle);

private:
    using Key = std::tuple<Text, int, int, bool, bool>; // family, pixels, tenths of degrees, bold, italic

    const double scale_;
    std::map<Key, GdiObject<HFONT>> fonts_;
};

} // namespace tolvex
