#include "platform/windows/pages/gdi_fonts.hpp"

#include <algorithm>
#include <cmath>

namespace tolvex {

namespace {

int whole(double number) { return static_cast<int>(std::lround(number)); }

HFONT new_font(const Text& family, int pixels, int tenths, bool bold, bool italic)
{
    LOGFONTW wanted{};
    wanted.lfHeight = -pixels;
    wanted.lfEscapement = wanted.lfOrientation = -tenths;
    wanted.lfWeight = bold ? FW_BOLD : FW_NORMAL;
    wanted.lfItalic = italic;
    wanted.lfCharSet = DEFAULT_CHARSET;
    wanted.lfOutPrecision = OUT_TT_ONLY_PRECIS;
    wanted.lfQuality = CLEARTYPE_QUALITY;
    family.copy(reinterpret_cast<char16_t*>(wanted.lfFaceName), LF_FACESIZE - 1);
    return CreateFontIndirectW(&wanted);
}

} // namespace

HFONT GdiFonts::font(const pages::Face& face, const pages::Font& font, double angle)
{
    const int pixels = std::max(whole(font.size * scale_), 1), tenths = whole(std::fmod(angle, 360) * 10);
    auto& made = fonts_[Key(face.family(), pixels, tenths, font.bold, font.italic)];
    if (!made) made.reset(new_font(face.family(), pixels, tenths, font.bold, font.italic));
    return made.get();
}

} // namespace tolvex
