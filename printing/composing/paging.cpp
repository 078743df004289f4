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

constexpr double least_room = 18; // points that margins and sections must leave
constexpr double tolerance = 0.5; // points by which a body may be wider than its page

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

// Left and right ends of a mark; a text belongs where it begins.
struct Extent
{
    struct Ends
    {
        double left, right;
    };
    Ends operator()(const FillMark& mark) const { return {mark.box.left, mark.box.right()}; }
    Ends operator()(const pages::PictureMark& mark) const { return {mark.visible.left, mark.visible.left}; }
    Ends operator()(const LineMark& mark) const
    {
        return {std::min(mark.from.x, mark.to.x), std::max(mark.from.x, mark.to.x)};
    }
    Ends operator()(const pages::TextMark& mark) const { return {mark.start.x, mark.start.x}; }
    Ends operator()(const pages::LinkMark& mark) const { return {mark.box.left, mark.box.left}; }
    Ends operator()(const pages::OutlineMark&) const { return {0, 0}; }
};

// Cuts a fill or level line to what lies between two edges.
void cut(Mark& mark, double left, double right)
{
    if (auto* fill = std::get_if<FillMark>(&mark)) {
        const double end = std::min(fill->box.right(), right);
        fill->box.left = std::max(fill->box.left, left);
        fill->box.width = end - fill->box.left;
    }
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

Paging::Paging(const Report& report, std::optional<PageRuns> totals, pages::PageSink& sink)
    : report_(report), totals_(std::move(totals)), sink_(sink), room_(report)
{}

void Paging::take(Draft draft)
{
    if (columns_on_sheet_ == room_.columns) close_sheet();
    add_column(std::move(draft));
}

void Paging::add_column(Draft draft)
{
    for (Mark& mark : draft.marks) {
        std::visit(Move{columns_on_sheet_ * room_.column_step, 0}, mark);
        sheet_.marks.push_back(std::move(mark));
    }
    std::move(draft.values.begin(), draft.values.end(), std::back_inserter(sheet_.values));
    sheet_.resets_page_number |= draft.resets_page_number;
    ++columns_on_sheet_;
}

void Paging::close_sheet()
{
    if (waiting_) emit(std::move(*waiting_), false);
    waiting_ = std::exchange(sheet_, {});
    columns_on_sheet_ = 0;
}

void Paging::finish()
{
    if (columns_on_sheet_ > 0 || !waiting_) close_sheet();
    emit(std::move(*waiting_), true);
}

void Paging::number(const Sheet& sheet)
{
    ++pages_;
    ++in_run_;
    if (run_ < 0 || sheet.resets_page_number) {
        ++run_;
        in_run_ = 1;
    }
    PageNumbers& numbers = report_.composition().numbers;
    numbers.page = in_run_;
    numbers.overall_page = numbers.overall_total = pages_;
    numbers.total = in_run_;
    if (!totals_) return;
    numbers.total = totals_->at(static_cast<std::size_t>(run_));
    numbers.overall_total = 0;
    for (const int pages : *totals_) numbers.overall_total += pages;
}

void Paging::emit(Sheet sheet, bool last)
{
    const Layout& layout = report_.layout();
    number(sheet);
    for (Mark& mark : sheet.marks) std::visit(Move{0, layout.top_margin + room_.header}, mark);
    std::vector<Mark> sections;
    put_section(layout.header, layout.top_margin, sheet.values, last, sections);
    put_section(layout.footer, layout.page_height - layout.bottom_margin - room_.footer, sheet.values, last,
                sections);
    give(std::move(sheet.marks), std::move(sections));
}

void Paging::put_section(const std::optional<PageSection>& section, double top, const PageItems& values,
                         bool last, std::vector<Mark>& marks) const
{
    if (!section || (pages_ == 1 && !section->on_first_page) ||
        (last && pages_ > 1 && !section->on_last_page))
        return;
    Strip strip(1e6, [&](Draft draft) {
        for (Mark& mark : draft.marks) {
            std::visit(Move{report_.layout().left_margin, top}, mark);
            marks.push_back(std::move(mark));
        }
    });
    Canvas canvas(report_, strip);
    canvas.set_page_items(&values);
    const Scope* scope = report_.outermost();
    const Look look = look_of(section->style, canvas.environment(scope), {});
    const Box box{0, 0, report_.layout().width, section->height};
    put_background(canvas, look, box);
    place_items(canvas, section->items, 0, 0, section->height, {scope, false});
    put_borders(canvas, look, box);
    strip.complete();
}

// What lies beyond the right margin comes on pages of its own, from left to right.
void Paging::give(std::vector<Mark> body, std::vector<Mark> sections)
{
    const Layout& layout = report_.layout();
    double right = 0;
    for (const Mark& mark : body) right = std::max(right, std::visit(Extent{}, mark).right);
    const int across = std::clamp(static_cast<int>(std::ceil((right - tolerance) / room_.width)), 1, 100);
    for (int i = 0; i < across; ++i) {
        const double from = i * room_.width, to = i + 1 < across ? from + room_.width : 1e9;
        pages::Page page{layout.page_width, layout.page_height, {}};
        for (const Mark& mark : body) {
            const auto [begin, end] = std::visit(Extent{}, mark);
            if ((begin < from && end <= from + tolerance) || begin >= to - tolerance) continue;
            Mark part = mark;
            if (across > 1) cut(part, from, to);
            std::visit(Move{layout.left_margin - from, 0}, part);
            page.marks.push_back(std::move(part));
        }
        page.marks.insert(page.marks.end(), sections.begin(), sections.end());
        sink_.take(std::move(page));
    }
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
