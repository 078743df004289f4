#include "platform/pages/fonts.hpp"
#include "platform/pages/typeface.hpp"

namespace tolvex::pages {

const FontMeasures& measures(const Font& font) { return typeface(font).face().measures(); }

double text_width(const Font& font, TextView text)
{
    const Typeface& used = typeface(font);
    long thousandths = 0;
    for (const char16_t c : text)
        if (const Drawn drawn = used.drawn(c); drawn.face) thousandths += drawn.face->width(drawn.character);
    return static_cast<double>(thousandths) * font.size / 1000;
}

} // namespace tolvex::pages
