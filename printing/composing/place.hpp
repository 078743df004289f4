// Report items placed on the strip. Each function tells where what it placed ends.
#pragma once

#include "printing/composing/canvas.hpp"

namespace tolvex::printing {

// Where an item stands and what surrounds it. When it is `alone`, nothing that is placed later stands beside
// it or above its end, so that pages behind it are done.
struct Setting
{
    const Scope* scope = nullptr;
    bool alone = false;
};

// Items of a body, rectangle or section whose corner is at left, top; `height` is what the layout gives them.
double place_items(Canvas& canvas, const std::vector<ReportItem>& items, double left, double top,
                   double height, const Setting& setting);

double place_item(Canvas& canvas, const ReportItem& item, const pages::Box& box, const Setting& setting);

double place_rectangle(Canvas& canvas, const ReportItem& item, const pages::Box& box, const Setting& setting);
double place_picture(Canvas& canvas, const ReportItem& item, const pages::Box& box, const Setting& setting);
double place_tablix(Canvas& canvas, const ReportItem& item, const pages::Box& box, const Setting& setting);
double place_subreport(Canvas& canvas, const ReportItem& item, const pages::Box& box, const Setting& setting);
// A thin frame with words in it, where something cannot be shown.
double place_notice(Canvas& canvas, const pages::Box& box, const Text& words);

// The common part of every item: background, borders, link, entries of the document map.
void put_background(Canvas& canvas, const Look& look, const pages::Box& box);
void put_borders(Canvas& canvas, const Look& look, const pages::Box& box);
void put_marks_of(Canvas& canvas, const ReportItem& item, const pages::Box& box, const Scope* scope);

// Where to go on when the layout wants a page to begin before, or after, what it says.
double break_before(Strip& strip, const PageBreak& page_break, double y, const ScopeEnvironment& here,
                    const Place& place);
double break_after(Strip& strip, const PageBreak& page_break, double y, const ScopeEnvironment& here,
                   const Place& place);

// How high an item would become, with no page to end it; no more is said than that it is higher than a page.
double height_of(Canvas& canvas, const ReportItem& item, const pages::Box& box, const Setting& setting);

} // namespace tolvex::printing
