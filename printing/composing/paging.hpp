// Drafts of the strip made into pages: columns side by side, what is too wide for one page on the next, page
// header and footer, numbers.
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

// What stands on one page of body, or on several side by side when it is too wide for one.
struct Sheet
{
    std::vector<std::vector<pages::Mark>> across;
    PageItems values;
    bool resets_page_number = false;
};

// Makes drafts into sheets.
class SheetMaker
{
public:
    using Take = std::function<void(Sheet)>;
    SheetMaker(const PageRoom& room, Take take) : room_(room), take_(std::move(take)) {}

    void take(Draft draft);
    // There is always a sheet.
    void finish();

private:
    void close();

    const PageRoom& room_;
    Take take_;
    Draft columns_; // side by side, as one
    int column_count_ = 0;
    bool any_ = false;
};

// How many pages each run of numbers has; a run begins where a page break resets the number.
class PageRuns
{
public:
    void add(const Sheet& sheet);
    int pages() const { return pages_; }
    const std::vector<int>& lengths() const { return lengths_; }

private:
    std::vector<int> lengths_;
    int pages_ = 0;
};

// Gives sheets to a sink as pages with their header, footer and numbers.
class Paging
{
public:
    // With `totals` the pages are numbered "of so many"; without, the totals are what is known by then.
    Paging(const Report& report, const PageRoom& room, std::optional<PageRuns> totals, pages::PageSink& sink)
        : report_(report), room_(room), totals_(std::move(totals)), sink_(sink)
    {}

    void take(Sheet sheet);
    void finish();

private:
    void emit(Sheet sheet, bool last);
    void give(std::vector<pages::Mark> body, const PageItems& values, bool last);
    void number(int before_end);
    void put_page_style(std::vector<pages::Mark>& marks) const;
    void put_section(const std::optional<PageSection>& section, const pages::Box& room,
                     const PageItems& values, bool last, std::vector<pages::Mark>& marks) const;

    const Report& report_;
    const PageRoom& room_;
    std::optional<PageRuns> totals_;
    pages::PageSink& sink_;
    std::optional<Sheet> waiting_; // until it is known whether it is the last
    PageRuns runs_;                // of the pages that were given
};

// The names of the text boxes that page header and footer read.
std::set<Text> items_read_by_sections(const Layout& layout);
// Does any expression ask how many pages there are?
bool asks_for_totals(const Layout& layout);

} // namespace tolvex::printing
