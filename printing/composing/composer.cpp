#include "printing/composing/composer.hpp"

#include "printing/composing/paging.hpp"
#include "printing/composing/place.hpp"

namespace tolvex::printing {

namespace {

constexpr std::size_t kept_drafts = 100; // pages that are kept until their number is known

// Places the body; its drafts come in order.
void place_body(const Report& report, const Strip::Take& take)
{
    const Layout& layout = report.layout();
    const PageRoom room(report);
    Strip strip(room.height, take);
    Canvas canvas(report, strip);
    canvas.set_read_items(items_read_by_sections(layout));
    const Look look = look_of(layout.body_style, canvas.environment(report.outermost()), {});
    const double end = place_items(canvas, layout.body.items, 0, 0, layout.body_height,
                                   {report.outermost(), look.is_plain()});
    const pages::Box box{0, 0, layout.width, end};
    if (look.background) strip.put_behind({0, 0}, {box, *look.background});
    put_borders(canvas, look, box);
    strip.complete();
}

// Counts drafts as Paging numbers their pages.
class RunCounter
{
public:
    explicit RunCounter(int columns) : columns_(columns) {}

    void count(const Draft& draft)
    {
        if (drafts_++ % columns_ == 0) {
            if (runs_.empty()) runs_.push_back(0);
            ++runs_.back();
        }
        if (draft.resets_page_number && drafts_ > 1 && runs_.back() > 1) {
            --runs_.back();
            runs_.push_back(1);
        }
    }
    PageRuns runs() const { return runs_.empty() ? PageRuns{1} : runs_; }

private:
    int columns_, drafts_ = 0;
    PageRuns runs_;
};

void give_without_totals(const Report& report, pages::PageSink& sink)
{
    Paging paging(report, {}, sink);
    place_body(report, [&paging](Draft draft) { paging.take(std::move(draft)); });
    paging.finish();
}

// How many pages there are is known at the end only: a short report waits for it, a long one is placed twice.
void give_with_totals(const Report& report, pages::PageSink& sink)
{
    RunCounter counter(std::max(report.layout().columns, 1));
    std::vector<Draft> kept;
    std::size_t count = 0;
    place_body(report, [&](Draft draft) {
        counter.count(draft);
        if (++count <= kept_drafts)
            kept.push_back(std::move(draft));
        else
            kept.clear();
    });
    Paging paging(report, counter.runs(), sink);
    const auto take = [&paging](Draft draft) { paging.take(std::move(draft)); };
    if (count <= kept_drafts)
        for (Draft& draft : kept) take(std::move(draft));
    else
        place_body(report, take);
    paging.finish();
}

} // namespace

std::vector<Remark> compose(const Layout& layout, const std::vector<GivenValue>& parameters,
                            Connection& connection, Date now, pages::PageSink& sink)
{
    Composition composition{connection, now};
    composition.open_files.push_back(layout.file);
    const Report report(layout, parameters, composition);
    if (asks_for_totals(layout))
        give_with_totals(report, sink);
    else
        give_without_totals(report, sink);
    return std::move(composition.remarks);
}

} // namespace tolvex::printing
