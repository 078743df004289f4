#include "printing/composing/paging.hpp"

#include "core/errors.hpp"
#include "printing/composing/place.hpp"

#include <algorithm>
#include <cmath>

namespace tolvex::printing {

namespace {

using pages::Box;
using pages::FillMark;
using pages::LineMark;
using pages::Mark;

constexpr double least_room = 18;   // points that margins and sections must leave
constexpr double tolerance = 0.5;   // points by which a body may be wider than its page
constexpr double most_across = 100; // pages side by side

struct Move
{
    double x, y;

    void operator()(FillMark& mark) const { move(mark.box); }
    void operator()(pages::PictureMark& mark) const
    {
        move(mark.box);
        move(mark.visible);
    }
    void operator()(LineMark& mark) const
    {
        move(mark.from);
        move(mark.to);
    }
    void operator()(pages::TextMark& mark) const { move(mark.start); }
    void operator()(pages::LinkMark& mark) const { move(mark.box); }
    void operator()(pages::OutlineMark& mark) const { mark.top += y; }

private:
    void move(Box& box) const
    {
        box.left += x;
        box.top += y;
    }
    void move(pages::Point& point) const
    {
        point.x += x;
        point.y += y;
    }
};

// Left and right ends of a mark; texts, links and outline entries belong where they begin.
struct Extent
{
    struct Ends
    {
        double left, right;
    };
    Ends operator()(const FillMark& mark) const { return {mark.box.left, mark.box.right()}; }
    Ends operator()(const pages::PictureMark& mark) const
    {
        return {mark.visible.left, mark.visible.right()};
    }
    Ends operator()(const LineMark& mark) const
    {
        return {std::min(mark.from.x, mark.to.x), std::max(mark.from.x, mark.to.x)};
    }
    Ends operator()(const pages::TextMark& mark) const { return {mark.start.x, mark.start.x}; }
    Ends operator()(const pages::LinkMark& mark) const { return {mark.box.left, mark.box.left}; }
    Ends operator()(const pages::OutlineMark&) const { return {0, 0}; }
};

// Cuts a fill, picture or level line to what lies between two edges.
void cut(Mark& mark, double left, double right)
{
    const auto cut_box = [left, right](Box& box) {
        const double end = std::min(box.right(), right);
        box.left = std::max(box.left, left);
        box.width = end - box.left;
    };
    if (auto* fill = std::get_if<FillMark>(&mark)) cut_box(fill->box);
    if (auto* picture = std::get_if<pages::PictureMark>(&mark)) cut_box(picture->visible);
    if (auto* line = std::get_if<LineMark>(&mark); line && line->from.y == line->to.y) {
        line->from.x = std::clamp(line->from.x, left, right);
        line->to.x = std::clamp(line->to.x, left, right);
    }
}

void visit_expressions(const std::vector<ReportItem>& items,
                       const std::function<void(const Expression&)>& visit)
{
    for (const ReportItem& item : items) {
        visit(item.hidden);
        if (const auto* box = std::get_if<Textbox>(&item.content))
            for (const Paragraph& paragraph : box->paragraphs)
                for (const TextRun& run : paragraph.runs) {
                    visit(run.value);
                    visit(run.style.color);
                }
        if (const auto* rectangle = std::get_if<Rectangle>(&item.content))
            visit_expressions(rectangle->items, visit);
        if (const auto* image = std::get_if<Image>(&item.content)) visit(image->value);
    }
}

void visit_sections(const Layout& layout, const std::function<void(const Expression&)>& visit)
{
    if (layout.header) visit_expressions(layout.header->items, visit);
    if (layout.footer) visit_expressions(layout.footer->items, visit);
}

// What a page header or footer needs when its texts grow; those of its page are not known yet.
double section_height(const Report& report, const std::optional<PageSection>& section)
{
    if (!section) return 0;
    Strip strip = Strip::rehearsal(1e6);
    Canvas canvas(report, strip);
    const PageItems none;
    canvas.set_page_items(&none);
    return place_items(canvas, section->items, 0, 0, section->height, {report.outermost(), false});
}

} // namespace

PageRoom::PageRoom(const Report& report) : columns(std::max(report.layout().columns, 1))
{
    const Layout& layout = report.layout();
    header = section_height(report, layout.header);
    footer = section_height(report, layout.footer);
    height = layout.page_height - layout.top_margin - layout.bottom_margin - header - footer;
    width = layout.page_width - layout.left_margin - layout.right_margin;
    if (width < least_room || height < least_room)
        throw invalid_call(u"Los márgenes y secciones del reporte no dejan lugar en la página");
    column_step = columns > 1 ? layout.width + layout.column_spacing : 0;
}

void SheetMaker::take(Draft draft)
{
    if (column_count_ == room_.columns) close();
    for (Mark& mark : draft.marks) {
        std::visit(Move{column_count_ * room_.column_step, 0}, mark);
        columns_.marks.push_back(std::move(mark));
    }
    std::move(draft.values.begin(), draft.values.end(), std::back_inserter(columns_.values));
    columns_.resets_page_number |= draft.resets_page_number;
    ++column_count_;
    any_ = true;
}

void SheetMaker::finish()
{
    if (column_count_ > 0 || !any_) close();
}

// What lies beyond the right margin comes on pages of its own, from left to right.
void SheetMaker::close()
{
    column_count_ = 0;
    Draft all = std::exchange(columns_, {});
    double right = 0;
    for (const Mark& mark : all.marks) right = std::max(right, std::visit(Extent{}, mark).right);
    const double across = std::clamp(std::ceil((right - tolerance) / room_.width), 1.0, most_across);
    Sheet sheet{{}, std::move(all.values), all.resets_page_number};
    sheet.across.resize(static_cast<std::size_t>(across));
    if (across == 1) {
        sheet.across.front() = std::move(all.marks);
        return take_(std::move(sheet));
    }
    for (std::size_t i = 0; i < sheet.across.size(); ++i) {
        const double from = static_cast<double>(i) * room_.width;
        const double to = i + 1 < sheet.across.size() ? from + room_.width : 1e9;
        for (const Mark& mark : all.marks) {
            const auto [begin, end] = std::visit(Extent{}, mark);
            if ((begin < from && end <= from + tolerance) || begin >= to - tolerance) continue;
            Mark part = mark;
            cut(part, from, to);
            std::visit(Move{-from, 0}, part);
            sheet.across[i].push_back(std::move(part));
        }
    }
    take_(std::move(sheet));
}

void PageRuns::add(const Sheet& sheet)
{
    if (lengths_.empty() || sheet.resets_page_number) lengths_.push_back(0);
    const auto count = static_cast<int>(sheet.across.size());
    lengths_.back() += count;
    pages_ += count;
    if (pages_ > static_cast<int>(most_pages)) throw too_many_pages();
}

void Paging::take(Sheet sheet)
{
    if (waiting_) emit(std::move(*waiting_), false);
    waiting_ = std::move(sheet);
}

void Paging::finish()
{
    if (waiting_) emit(std::move(*waiting_), true);
}

void Paging::emit(Sheet sheet, bool last)
{
    runs_.add(sheet);
    const auto count = static_cast<int>(sheet.across.size());
    for (int i = 0; i < count; ++i) {
        number(i - count);
        give(std::move(sheet.across[static_cast<std::size_t>(i)]), sheet.values, last && i + 1 == count);
    }
}

// Of the page that lies so far before the end of what was counted.
void Paging::number(int before_end)
{
    const std::size_t run = runs_.lengths().size() - 1;
    PageNumbers& numbers = report_.composition().numbers;
    numbers.page = numbers.total = runs_.lengths()[run] + before_end + 1;
    numbers.overall_page = numbers.overall_total = runs_.pages() + before_end + 1;
    if (!totals_) return;
    if (run < totals_->lengths().size()) numbers.total = totals_->lengths()[run];
    numbers.overall_total = totals_->pages();
}

void Paging::give(std::vector<Mark> body, const PageItems& values, bool last)
{
    const Layout& layout = report_.layout();
    pages::Page page{layout.page_width, layout.page_height, {}};
    put_page_style(page.marks);
    for (Mark& mark : body) {
        std::visit(Move{layout.left_margin, layout.top_margin + room_.header}, mark);
        page.marks.push_back(std::move(mark));
    }
    const double footer_top = layout.page_height - layout.bottom_margin - room_.footer;
    put_section(layout.header, {0, layout.top_margin, layout.width, room_.header}, values, last, page.marks);
    put_section(layout.footer, {0, footer_top, layout.width, room_.footer}, values, last, page.marks);
    sink_.take(std::move(page));
}

// Background and borders of the page, inside its margins.
void Paging::put_page_style(std::vector<Mark>& marks) const
{
    const Layout& layout = report_.layout();
    Strip strip(1e6, [&marks](Draft draft) { marks = std::move(draft.marks); });
    Canvas canvas(report_, strip);
    const Look look = look_of(layout.page_style, canvas.environment(report_.outermost()), {});
    if (look.is_plain()) return;
    const Box box{layout.left_margin, layout.top_margin,
                  layout.page_width - layout.left_margin - layout.right_margin,
                  layout.page_height - layout.top_margin - layout.bottom_margin};
    put_background(canvas, look, box);
    put_borders(canvas, look, box);
    strip.complete();
}

void Paging::put_section(const std::optional<PageSection>& section, const Box& room, const PageItems& values,
                         bool last, std::vector<Mark>& marks) const
{
    const bool first = report_.composition().numbers.overall_page == 1;
    if (!section || (first && !section->on_first_page) || (last && !first && !section->on_last_page)) return;
    Strip strip(1e6, [&](Draft draft) {
        for (Mark& mark : draft.marks) {
            std::visit(Move{report_.layout().left_margin, room.top}, mark);
            marks.push_back(std::move(mark));
        }
    });
    Canvas canvas(report_, strip);
    canvas.set_page_items(&values);
    const Scope* scope = report_.outermost();
    const Look look = look_of(section->style, canvas.environment(scope), {});
    const Box box{0, 0, room.width, room.height};
    put_background(canvas, look, box);
    place_items(canvas, section->items, 0, 0, section->height, {scope, false});
    put_borders(canvas, look, box);
    strip.complete();
}

std::set<Text> items_read_by_sections(const Layout& layout)
{
    std::set<Text> names;
    visit_sections(layout, [&names](const Expression& expression) {
        expression.for_each_mention([&names](Expression::Mention mention, const Text& name) {
            if (mention == Expression::Mention::report_item) names.insert(lower_case(name));
        });
    });
    return names;
}

bool asks_for_totals(const Layout& layout)
{
    bool asks = false;
    visit_sections(layout, [&asks](const Expression& expression) {
        expression.for_each_mention([&asks](Expression::Mention mention, const Text& name) {
            asks |= mention == Expression::Mention::global && lower_case(name).ends_with(u"totalpages");
        });
    });
    return asks;
}

} // namespace tolvex::printing
