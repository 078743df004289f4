// The fonts that pages are set in. Each machine has its own; a text measures the same for every painter.
#pragma once

#include "platform/pages/page.hpp"

namespace tolvex::pages {

// A font at size 1: measures are parts of its size.
struct FontMeasures
{
    double ascent = 0, descent = 0; // above and below the baseline, both positive
    double underline = 0.1;         // distance of the middle of an underline below the baseline
};

const FontMeasures& measures(const Font& font);

// Width of a text in points, without kerning. A character that the font lacks has its substitute's.
double text_width(const Font& font, TextView text);

// Port: the file of an installed TrueType font of that family, or of one with the same metrics (Arial and
// Liberation Sans); empty when there is none. `index` counts the fonts of a collection.
struct FontFile
{
    Text path;
    unsigned index = 0;
};
FontFile find_font_file(const Font& font);

} // namespace tolvex::pages
