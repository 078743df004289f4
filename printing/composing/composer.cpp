#include "printing/composing/composer.hpp"

#include "printing/composing/paging.hpp"
#include "printing/composing/place.hpp"

namespace tolvex::printing {

namespace {

constexpr std::size_t kept_sheets = 100; // that wait until it is known how many there are

// Places the body; its sheets come in order.
void place_body(const Report& report, const PageRoom& room, const SheetMaker::Take& take)
{
    const Layout& layout = report.layout();
    SheetMaker sheets(room, take);
    Strip strip(room.height, [&sheets](Draft draft) { sheets.take(std::move(draft)); });
    Canvas canvas(report, strip);
    canvas.set_read_items(items_read_by_sections(layout));
    const Look look = look_of(layout.body_style, canvas.environment(report.outermost()), {});
    const double end = place_items(canvas, layout.body.items, 0, 0, layout.body_height,
                                   {report.outermost(), look.is_plain()});
    const pages::Box box{0, 0, layout.width, end};
    if (look.background) strip.put_behind({0, 0}, {box, *look.background});
    put_borders(canvas, look, box);
    strip.complete();
    sheets.finish();
}

void give_without_totals(const Report& report, const PageRoom& room, pages::PageSink& sink)
{
    Paging paging(report, room, {}, sink);
    place_body(report, room, [&paging](Sheet sheet) { paging.take(std::move(sheet)); });
    paging.finish();
}

// How many pages there are is known at the end only: a short report waits for it, a long one is placed twice.
void give_with_totals(const Report& report, const PageRoom& room, pages::PageSink& sink)
{
    PageRuns runs;
    std::vector<Sheet> kept;
    bool keeps = true;
    place_body(report, room, [&](Sheet sheet) {
        runs.add(sheet);
        keeps = keeps && kept.size() < kept_sheets;
        if (keeps)
            kept.push_back(std::move(sheet));
        else
            kept.clear();
    });
    Paging paging(report, room, runs, sink);
    const auto take = [&paging](Sheet sheet) { paging.take(std::move(sheet)); };
    if (keeps)
        for (Sheet& sheet : kept) take(std::move(sheet));
    else
        place_body(report, room, take);
    paging.finish();
}

} // namespace

std::vector<Remark> compose(const Layout& layout, const std::vector<GivenValue>& parameters,
                            Connection& connection, Date now, pages::PageSink& sink)
{
    Composition composition{connection, now};
    composition.open_files.push_back(layout.file);
    const Report report(layout, parameters, composition);
    const PageRoom room(report);
    if (asks_for_totals(layout))
        give_with_totals(report, room, sink);
    else
        give_without_totals(report, room, sink);
    return std::move(composition.remarks);
}

} // namespace tolvex::printing
