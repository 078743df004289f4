// Text boxes: their lines measured first, then placed.
#pragma once

#include "printing/composing/place.hpp"
#include "printing/composing/text_block.hpp"

#include <list>

namespace tolvex::printing {

// A text box whose text is broken into lines; its height is what they need.
struct LaidText
{
    const ReportItem* item = nullptr;
    const Scope* scope = nullptr;
    Look look;
    std::list<TextLook> text_looks; // those that expressions make
    std::vector<TextLine> lines;
    Variant value; // of the first run
    double height = 0;

    LaidText(const ReportItem* its_item, const Scope* its_scope, Look its_look)
        : item(its_item), scope(its_scope), look(its_look)
    {}
    LaidText(LaidText&&) = default; // the lines point to the looks
    LaidText& operator=(LaidText&&) = default;
};

// The box's height counts for what neither grows nor is measured: text that stands upright.
LaidText lay_text(Canvas& canvas, const ReportItem& item, const pages::Box& box, const Scope* scope);
// Words of one's own in the look of an item.
LaidText lay_words(Canvas& canvas, const ReportItem& item, const Text& words, double width,
                   const Scope* scope);
// The height of the box with that text, as it may grow and shrink.
double height_with(const LaidText& laid, double height);
// Page headers and footers read hidden text boxes too: that is how layouts hand them values.
void record_hidden(Canvas& canvas, const ReportItem& item, double y, const Scope* scope);

double place_text(Canvas& canvas, const LaidText& laid, const pages::Box& box);
// The same in two steps, for a box whose end others settle: its lines, each whole on its page, give where it
// ends by itself; then all else about it.
double put_text(Canvas& canvas, const LaidText& laid, const pages::Box& box);
void put_frame(Canvas& canvas, const LaidText& laid, const pages::Box& box, const Strip::Behind& behind);

} // namespace tolvex::printing
