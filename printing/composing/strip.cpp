#include "printing/composing/strip.hpp"

#include "core/errors.hpp"
#include "core/numbers.hpp"

#include <algorithm>
#include <cmath>
#include <numeric>

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
    double operator()(const LineMark& mark) const { return std::min(mark.from.y, mark.to.y); }
    double operator()(const pages::TextMark& mark) const
    {
        if (mark.angle == 90) return mark.start.y;
        return mark.start.y - (mark.angle == 0 ? mark.font.size / 2 : 1);
    }
    double operator()(const pages::LinkMark& mark) const { return mark.box.top; }
    double operator()(const pages::OutlineMark& mark) const { return mark.top; }
};

} // namespace

Error too_many_pages() { return invalid_call(u"El reporte pasa de " + decimal(most_pages) + u" páginas"); }

Strip Strip::rehearsal(double enough)
{
    Strip strip(1e9, nullptr);
    strip.enough_ = enough;
    return strip;
}

std::size_t Strip::page_of(double y) const
{
    return static_cast<std::size_t>(std::clamp(std::floor((y + tolerance) / page_height_), 0.0, 1e15));
}

double Strip::rest_of_page(double y) const { return top_of(page_of(y) + 1) - y; }

bool Strip::is_fresh(double y) const
{
    return std::abs(y - fresh_) <= tolerance || y - top_of(page_of(y)) <= tolerance;
}

double Strip::break_page(double y) { return is_rehearsal() ? y : fresh_ = under_repeated(page_of(y) + 1); }

double Strip::under_repeated(std::size_t page)
{
    double top = top_of(page);
    if (std::exchange(is_repeating_, true)) return top; // what is repeated is higher than a page
    const std::vector<Repeated*> repeated = repeated_;  // tables in it come and go
    for (Repeated* each : repeated) {
        if (each->page_ < page) {
            each->page_ = page;
            each->height_ = each->place_again(top) - top;
        }
        top += each->height_;
    }
    is_repeating_ = false;
    return top;
}

double Strip::repeated_height() const
{
    return std::accumulate(repeated_.begin(), repeated_.end(), 0.0,
                           [](double height, const Repeated* each) { return height + each->height_; });
}

double Strip::next_page(double y) const
{
    const double top = top_of(page_of(y));
    return y - top <= tolerance || is_rehearsal() ? y : top + page_height_;
}

double Strip::go_on(double y)
{
    const std::size_t page = page_of(y);
    return repeated_.empty() || y - top_of(page) > tolerance ? y : fresh_ = under_repeated(page);
}

double Strip::make_room(double y, double height)
{
    y = go_on(y);
    if (height <= rest_of_page(y) + tolerance || is_fresh(y)) return y;
    // What no page can hold begins here, unless little is left.
    if (height > page_height_ + tolerance && rest_of_page(y) > page_height_ / 4) return y;
    return break_page(y);
}

void Strip::reset_page_number(double y)
{
    if (!is_rehearsal()) draft(page_of(y)).resets_page_number = true;
}

Draft& Strip::draft(std::size_t page)
{
    if (page >= most_pages) throw too_many_pages();
    page = std::max(page, first_);
    while (drafts_.size() <= page - first_) drafts_.emplace_back();
    return drafts_[page - first_];
}

void Strip::put_on(std::size_t page, pages::Mark mark)
{
    std::visit(MoveUp{top_of(page)}, mark);
    draft(page).marks.push_back(std::move(mark));
}

std::vector<Box> Strip::parts(const Box& box) const
{
    std::vector<Box> parts;
    if (is_rehearsal()) return parts;
    double y = box.top;
    do {
        if (page_of(y) >= most_pages) throw too_many_pages();
        const double end = std::min(box.bottom(), top_of(page_of(y) + 1));
        parts.push_back({box.left, y, box.width, end - y});
        y = end + repeated_height();
    } while (y < box.bottom() - tolerance);
    return parts;
}

void Strip::put(pages::Mark mark)
{
    if (is_rehearsal()) return;
    if (const auto* fill = std::get_if<FillMark>(&mark)) {
        for (const Box& part : parts(fill->box)) put_on(page_of(part.top), FillMark{part, fill->color});
    } else if (auto* picture = std::get_if<pages::PictureMark>(&mark)) {
        for (const Box& part : parts(picture->visible)) {
            picture->visible = part;
            put_on(page_of(part.top), *picture);
        }
    } else if (auto* line = std::get_if<LineMark>(&mark); line && line->from.x == line->to.x) {
        const double top = std::min(line->from.y, line->to.y), bottom = std::max(line->from.y, line->to.y);
        for (const Box& part : parts({line->from.x, top, 0, bottom - top})) {
            line->from.y = part.top;
            line->to.y = part.bottom();
            put_on(page_of(part.top), *line);
        }
    } else {
        const std::size_t page = page_of(std::visit(Top{}, mark));
        put_on(page, std::move(mark));
    }
}

void Strip::put_edge(LineMark line, double y)
{
    if (!is_rehearsal()) put_on(page_of(y), line);
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
    for (const Box& part : parts(fill.box)) {
        const std::size_t page = page_of(part.top);
        auto& marks = draft(page).marks;
        const auto index = static_cast<std::ptrdiff_t>(page == place.page ? place.index : 0);
        marks.insert(marks.begin() + index,
                     FillMark{{part.left, part.top - top_of(page), part.width, part.height}, fill.color});
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
