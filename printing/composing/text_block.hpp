// Text broken into lines of a given width.
#pragma once

#include "printing/composing/look.hpp"

namespace tolvex::printing {

// Text in one look.
struct Span
{
    Text text;
    const TextLook* look = nullptr;
    Text address; // that it opens
};

struct TextLine
{
    std::vector<Span> spans;
    double width = 0, ascent = 0, descent = 0;
    double indent = 0;       // from the left of the block
    double space_before = 0; // above it
    double room = 0;         // what it may be wide
    Horizontal horizontal = Horizontal::left;

    double height() const { return ascent + descent; }
};

struct ParagraphText
{
    std::vector<Span> spans;
    Horizontal horizontal = Horizontal::left;
    double left_indent = 0, right_indent = 0, hanging_indent = 0, space_before = 0, space_after = 0;
    double line_height = 0; // 0: as the fonts have it
};

// Lines break at blanks and hyphens, else anywhere: nothing stands beyond the width.
std::vector<TextLine> broken_into_lines(const std::vector<ParagraphText>& paragraphs, double width);

} // namespace tolvex::printing
