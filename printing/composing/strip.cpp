#include "printing/composing/strip.hpp"

#include <algorithm>
#include <cmath>

namespace tolvex::printing {

namespace {

using pages::Box;
using pages::FillMark;
using pages::LineMark;

constexpr double tolerance = 0.05; // points by which lengths of a designer's grid differ when summed up

// Moves a mark up by `top`.
struct MoveUp
{
    double top;

    void operator()(FillMark& mark) const { mark.box.top -= top; }
    void operator()(pages::PictureMark& mark) const
    {
        mark.box.top -= top;
        mark.visible.top -= top;
    }
    void operator()(LineMark& mark) const
    {
        mark.from.y -= top;
        mark.to.y -= top;
    }
    void operator()(pages::TextMark& mark) const { mark.start.y -= top; }
    void operator()(pages::LinkMark& mark) const { mark.box.top -= top; }
    void operator()(pages::OutlineMark& mark) const { mark.top -= top; }
};

// Where a mark begins, seen from above.
struct Top
{
    double operator()(const FillMark& mark) const { return mark.box.top; }
    double operator()(const pages::PictureMark& mark) const { return mark.visible.top; }
    double operator()(const LineMark& mark) const { return std::min(mark.from.y, mark.to.y) - 2 * tolerance; }
    double operator()(const pages::TextMark& mark) const
    {
        if (mark.angle == 90) return mark.start.y;
        return mark.start.y - (mark.angle == 0 ? mark.font.size / 2 : 1);
    }
    double operator()(const pages::LinkMark& mark) const { return mark.box.top; }
    double operator()(const pages::OutlineMark& mark) const { return mark.top; }
};

} // namespace

Strip Strip::rehearsal(double enough)
{
    Strip strip(1e9, nullptr);
    strip.enough_ = enough;
    return strip;
}

std::size_t Strip::page_of(double y) const
{
    return static_cast<std::size_t>(std::max(0.0, std::floor((y + tolerance) / page_height_)));
}

double Strip::rest_of_page(double y) const { return top_of(page_of(y) + 1) - y; }

bool Strip::is_fresh(double y) const
{
    return std::abs(y - fresh_) <= tolerance || y - top_of(page_of(y)) <= tolerance;
}

double Strip::break_page(double y)
{
    const std::size_t page = page_of(y) + 1;
    double top = top_of(page);
    const std::vector<Repeated*> repeated = repeated_; // what they put may break pages itself
    for (Repeated* each : repeated) {
        if (each->page_ != page) {
            each->page_ = page;
            each->bottom_ = each->place_again(top);
        }
        top = each->bottom_;
    }
    return fresh_ = top;
}

double Strip::next_page(double y) const
{
    const double top = top_of(page_of(y));
    return y - top <= tolerance ? y : top + page_height_;
}

double Strip::make_room(double y, double height)
{
    if (height <= rest_of_page(y) + tolerance || is_fresh(y)) return y;
    return break_page(y);
}

void Strip::reset_page_number(double y)
{
    if (!is_rehearsal()) draft(page_of(y)).resets_page_number = true;
}

Draft& Strip::draft(std::size_t page)
{
    page = std::max(page, first_);
    while (drafts_.size() <= page - first_) drafts_.emplace_back();
    return drafts_[page - first_];
}

void Strip::put_on(std::size_t page, pages::Mark mark)
{
    std::visit(MoveUp{top_of(page)}, mark);
    draft(page).marks.push_back(std::move(mark));
}

void Strip::put(pages::Mark mark)
{
    if (is_rehearsal()) return;
    if (const auto* fill = std::get_if<FillMark>(&mark)) {
        for (double y = fill->box.top; y < fill->box.bottom() - tolerance;) {
            const double end = std::min(fill->box.bottom(), top_of(page_of(y) + 1));
            put_on(page_of(y), FillMark{{fill->box.left, y, fill->box.width, end - y}, fill->color});
            y = end;
        }
        return;
    }
    if (auto* line = std::get_if<LineMark>(&mark); line && line->from.x == line->to.x) {
        if (line->from.y > line->to.y) std::swap(line->from.y, line->to.y);
        for (LineMark part = *line; part.from.y < line->to.y - tolerance; part.from.y = part.to.y) {
            part.to.y = std::min(line->to.y, top_of(page_of(part.from.y) + 1));
            put_on(page_of(part.from.y), part);
        }
        return;
    }
    const std::size_t page = page_of(std::visit(Top{}, mark));
    put_on(page, std::move(mark));
}

void Strip::record(double y, const ReportItem& item, const Variant& value)
{
    if (is_rehearsal()) return;
    draft(page_of(y)).values.emplace_back(&item, value);
}

Strip::Behind Strip::behind(double y)
{
    if (is_rehearsal()) return {};
    const std::size_t page = page_of(y);
    return {page, draft(page).marks.size()};
}

void Strip::put_behind(const Behind& place, const FillMark& fill)
{
    if (is_rehearsal()) return;
    for (double y = fill.box.top; y < fill.box.bottom() - tolerance;) {
        const std::size_t page = page_of(y);
        const double end = std::min(fill.box.bottom(), top_of(page + 1));
        const auto index = static_cast<std::ptrdiff_t>(page == place.page ? place.index : 0);
        FillMark part{{fill.box.left, y - top_of(page), fill.box.width, end - y}, fill.color};
        auto& marks = draft(page).marks;
        marks.insert(marks.begin() + index, part);
        y = end;
    }
}

void Strip::complete_before(double y)
{
    for (const std::size_t page = page_of(y); first_ < page && !drafts_.empty(); ++first_) {
        take_(std::move(drafts_.front()));
        drafts_.pop_front();
    }
}

void Strip::complete()
{
    for (Draft& each : drafts_) take_(std::move(each));
    first_ += drafts_.size();
    drafts_.clear();
}

} // namespace tolvex::printing
