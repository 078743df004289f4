#include "printing/composing/place.hpp"
#include "printing/composing/place_text.hpp"

#include "core/errors.hpp"

#include <algorithm>

namespace tolvex::printing {

namespace {

using pages::Box;

double bottom(const ReportItem& item) { return item.top + item.height; }

// How far something moves down (or up) with those above it.
double shift(const std::vector<std::size_t>& above, const std::vector<double>& shifts)
{
    double farthest = above.empty() ? 0 : shifts[above.front()];
    for (const std::size_t i : above) farthest = std::max(farthest, shifts[i]);
    return farthest;
}

void put_line(Canvas& canvas, const ReportItem& item, const Look& look, const Box& box)
{
    const bool upwards = std::get<Line>(item.content).upwards;
    // The border of a line is that of its upper edge in some designers and of its left one in others.
    const Stroke& stroke = look.top.width > 0 ? look.top : look.left;
    if (stroke.width == 0) return;
    const pages::Point from{box.left, upwards ? box.bottom() : box.top};
    const pages::Point to{box.right(), upwards ? box.top : box.bottom()};
    canvas.strip().put(pages::LineMark{from, to, stroke.width, stroke.color, stroke.dashes});
}

double place_text_box(Canvas& canvas, const ReportItem& item, Box box, const Setting& setting)
{
    const LaidText laid = lay_text(canvas, item, box, setting.scope);
    box.height = height_with(laid, box.height);
    box.top = canvas.strip().make_room(box.top, box.height);
    return place_text(canvas, laid, box);
}

double place_line(Canvas& canvas, const ReportItem& item, Box box, const Setting& setting)
{
    box.top = canvas.strip().make_room(box.top, std::max(box.height, 1.0));
    put_line(canvas, item, canvas.look(item, canvas.environment(setting.scope)), box);
    put_marks_of(canvas, item, box, setting.scope);
    return box.bottom();
}

void put_edge(Strip& strip, const Stroke& stroke, pages::Point from, pages::Point to, double page_at)
{
    if (stroke.width == 0) return;
    if (!stroke.twofold)
        return strip.put_edge({from, to, stroke.width, stroke.color, stroke.dashes}, page_at);
    const double third = stroke.width / 3;
    const bool upright = from.x == to.x;
    for (const double aside : {-third, third}) {
        const double x = upright ? aside : 0, y = upright ? 0 : aside;
        strip.put_edge({{from.x + x, from.y + y}, {to.x + x, to.y + y}, third, stroke.color, {}}, page_at);
    }
}

// An error that says where in the layout it is.
struct PlacedError : Error
{
    using Error::Error;
    explicit PlacedError(const Error& error) : Error(error) {}
};

} // namespace

void put_background(Canvas& canvas, const Look& look, const Box& box)
{
    if (look.background && box.height > 0) canvas.strip().put(pages::FillMark{box, *look.background});
}

void put_borders(Canvas& canvas, const Look& look, const Box& box)
{
    if (look.left.width + look.top.width + look.right.width + look.bottom.width == 0) return;
    for (const Box& part : canvas.strip().parts(box)) {
        const pages::Point upper_left{part.left, part.top}, upper_right{part.right(), part.top};
        const pages::Point lower_left{part.left, part.bottom()}, lower_right{part.right(), part.bottom()};
        put_edge(canvas.strip(), look.top, upper_left, upper_right, part.top);
        put_edge(canvas.strip(), look.left, upper_left, lower_left, part.top);
        put_edge(canvas.strip(), look.right, upper_right, lower_right, part.top);
        put_edge(canvas.strip(), look.bottom, lower_left, lower_right, part.top);
    }
}

void put_marks_of(Canvas& canvas, const ReportItem& item, const Box& box, const Scope* scope)
{
    if (item.document_map_label.is_empty() && item.action.hyperlink.is_empty()) return;
    const ScopeEnvironment here = canvas.environment(scope);
    if (const Text label = property(item.document_map_label, here, item.place); !label.empty())
        canvas.strip().put(pages::OutlineMark{label, canvas.outline_level, box.top});
    if (const Text address = property(item.action.hyperlink, here, item.place); !address.empty())
        canvas.strip().put(pages::LinkMark{box, address});
}

double break_before(Strip& strip, const PageBreak& page_break, double y, const ScopeEnvironment& here,
                    const Place& place)
{
    const bool wanted = page_break.location == Break::start || page_break.location == Break::start_and_end;
    if (!wanted || is_true(page_break.disabled, here, place)) return y;
    if (!strip.is_fresh(y)) y = strip.break_page(y);
    if (is_true(page_break.reset_page_number, here, place)) strip.reset_page_number(y);
    return y;
}

double break_after(Strip& strip, const PageBreak& page_break, double y, const ScopeEnvironment& here,
                   const Place& place)
{
    const bool wanted = page_break.location == Break::end || page_break.location == Break::start_and_end;
    if (!wanted || is_true(page_break.disabled, here, place)) return y;
    y = strip.next_page(y);
    if (is_true(page_break.reset_page_number, here, place)) strip.reset_page_number(y);
    return y;
}

double place_notice(Canvas& canvas, const Box& box, const Text& words)
{
    Strip& strip = canvas.strip();
    const double top = strip.make_room(box.top, box.height);
    Look frame;
    frame.left = frame.top = frame.right = frame.bottom = {0.5, {128, 128, 128}, pages::Dashes::solid, false};
    put_borders(canvas, frame, {box.left, top, box.width, box.height});
    strip.put(pages::TextMark{{box.left + 3, top + std::min(box.height - 2, 10.0)},
                              words,
                              {u"Arial", 8, false, true},
                              {128, 128, 128},
                              0,
                              0});
    return top + box.height;
}

double place_item(Canvas& canvas, const ReportItem& item, const Box& box, const Setting& setting)
{
    if (is_true(item.hidden, canvas.environment(setting.scope), item.place)) {
        record_hidden(canvas, item, box.top, setting.scope);
        // What is hidden by its data leaves no room, what always is keeps it.
        return item.hidden.is_literal() ? box.bottom() : box.top;
    }
    struct Placer
    {
        Canvas& canvas;
        const ReportItem& item;
        const Box& box;
        const Setting& setting;

        double operator()(const Textbox&) const { return place_text_box(canvas, item, box, setting); }
        double operator()(const Line&) const { return place_line(canvas, item, box, setting); }
        double operator()(const Rectangle&) const { return place_rectangle(canvas, item, box, setting); }
        double operator()(const Image&) const { return place_picture(canvas, item, box, setting); }
        double operator()(const Subreport&) const { return place_subreport(canvas, item, box, setting); }
        double operator()(const std::shared_ptr<const Tablix>&) const
        {
            return place_tablix(canvas, item, box, setting);
        }
        double operator()(const Unsupported& unsupported) const
        {
            return place_notice(canvas, box, unsupported.element);
        }
    };
    try {
        return std::visit(Placer{canvas, item, box, setting}, item.content);
    } catch (const PlacedError&) {
        throw; // the innermost item says where
    } catch (const Error& error) {
        throw PlacedError(with_detail(error, in_words(item.place)));
    }
}

double place_items(Canvas& canvas, const std::vector<ReportItem>& items, double left, double top,
                   double height, const Setting& setting)
{
    const Arrangement& arrangement = canvas.arrangement(items);
    std::vector<double> shifts;
    double lowest = top + height;
    for (const Arrangement::Place& place : arrangement.places) {
        const ReportItem& item = *place.item;
        const double by = shift(place.above, shifts);
        const Box box{left + item.left, top + item.top + by, item.width, item.height};
        const double end = place_item(canvas, item, box, {setting.scope, setting.alone && place.alone});
        shifts.push_back(end - (top + bottom(item)));
        lowest = std::max(lowest, end);
    }
    return std::max(lowest, top + height + shift(arrangement.above_bottom, shifts));
}

double height_of(Canvas& canvas, const ReportItem& item, const Box& box, const Setting& setting)
{
    const Canvas::Rehearsal rehearsal(canvas);
    return place_item(canvas, item, {box.left, 0, box.width, box.height}, {setting.scope, false});
}

double place_rectangle(Canvas& canvas, const ReportItem& item, const Box& box, const Setting& setting)
{
    const auto& rectangle = std::get<Rectangle>(item.content);
    const ScopeEnvironment here = canvas.environment(setting.scope);
    const Look look = canvas.look(item, here);
    Strip& strip = canvas.strip();
    double top = break_before(strip, rectangle.page_break, box.top, here, item.place);
    if (rectangle.keep_together && !strip.is_rehearsal())
        top = strip.make_room(top, height_of(canvas, item, box, setting));
    const Strip::Behind behind = strip.behind(top);
    put_marks_of(canvas, item, {box.left, top, box.width, box.height}, setting.scope);
    const double end = place_items(canvas, rectangle.items, box.left, top, box.height,
                                   {setting.scope, setting.alone && look.is_plain()});
    const Box grown{box.left, top, box.width, end - top};
    if (look.background) strip.put_behind(behind, {grown, *look.background});
    put_borders(canvas, look, grown);
    return break_after(strip, rectangle.page_break, end, here, item.place);
}

} // namespace tolvex::printing
