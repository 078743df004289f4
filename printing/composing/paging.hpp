// Drafts of the strip made into pages: columns side by side, page header and footer, numbers, and what is too
// wide for one page on the next.
#pragma once

#include "printing/composing/canvas.hpp"

namespace tolvex::printing {

// The room that a layout leaves on each page.
struct PageRoom
{
    explicit PageRoom(const Report& report);

    double width = 0, height = 0;  // of the body, of one column
    double header = 0, footer = 0; // as high as their texts make them on a page
    int columns = 1;
    double column_step = 0;
};

// How many pages each run of numbers has; a run begins where a page break resets the number.
using PageRuns = std::vector<int>;

class Paging
{
public:
    // With `totals` the pages are numbered "of so many"; without, the totals are what is known by then.
    Paging(const Report& report, std::optional<PageRuns> totals, pages::PageSink& sink);

    void take(Draft draft);
    void finish();

private:
    struct Sheet // one page's columns
    {
        std::vector<pages::Mark> marks;
        PageItems values;
        bool resets_page_number = false;
    };
    void add_column(Draft draft);
    void close_sheet();
    void emit(Sheet sheet, bool last);
    void number(const Sheet& sheet);
    void put_section(const std::optional<PageSection>& section, double top, const PageItems& values,
                     bool last, std::vector<pages::Mark>& marks) const;
    void give(std::vector<pages::Mark> body, std::vector<pages::Mark> sections);

    const Report& report_;
    std::optional<PageRuns> totals_;
    pages::PageSink& sink_;
    PageRoom room_;
    Sheet sheet_;
    int columns_on_sheet_ = 0;
    std::optional<Sheet> waiting_; // until it is known whether it is the last
    int pages_ = 0, run_ = -1, in_run_ = 0;
};

// The names of the text boxes that page header and footer read.
std::set<Text> items_read_by_sections(const Layout& layout);
// Does any expression ask how many pages there are?
bool asks_for_totals(const Layout& layout);

} // namespace tolvex::printing
