// The endless strip on which a body is composed. It is cut into pages of one height (or into the columns of
// pages); lengths count from its beginning.
#pragma once

#include "core/errors.hpp"
#include "platform/pages/page.hpp"
#include "printing/composing/page_items.hpp"

#include <deque>
#include <functional>

namespace tolvex::printing {

// One page of the strip, its marks counted from its own top.
struct Draft
{
    std::vector<pages::Mark> marks;
    PageItems values; // of the text boxes that page header or footer read
    bool resets_page_number = false;
};

// What stands again on top of each page that a table goes on to.
class Repeated
{
public:
    virtual ~Repeated() = default;
    // Puts it at y; where it ends.
    virtual double place_again(double y) = 0;

private:
    friend class Strip;
    std::size_t page_ = 0; // that it was put on last, and how high it was there
    double height_ = 0;
};

// A report of more pages is an Error: a layout whose pages never end.
constexpr std::size_t most_pages = 20'000;
Error too_many_pages();

class Strip
{
public:
    using Take = std::function<void(Draft)>;
    Strip(double page_height, Take take) : page_height_(page_height), take_(std::move(take)) {}
    // One without pages that keeps nothing, to see how high something becomes; `enough` is all that matters.
    static Strip rehearsal(double enough);
    bool is_rehearsal() const { return !take_; }
    // Need a rehearsal that has come to y go on?
    bool has_enough(double y) const { return is_rehearsal() && y > enough_; }

    double page_height() const { return page_height_; }
    std::size_t page_of(double y) const;
    double rest_of_page(double y) const;
    // Nothing but what is repeated stands above y on its page.
    bool is_fresh(double y) const;

    // Where to go on on the next page, under what is repeated there. A rehearsal has no other page.
    double break_page(double y);
    // The top of the next page, with nothing on it; y itself when it is the top of one.
    double next_page(double y) const;
    // y, or below what is repeated on a page that begins at y.
    double go_on(double y);
    // The same, or the next page when the height has no room on this one but would have there.
    double make_room(double y, double height);
    void reset_page_number(double y);

    // While it lives, something is repeated on each page after that of y.
    class Repeating
    {
    public:
        Repeating(Strip& strip, Repeated& what, double y) : strip_(strip)
        {
            what.page_ = strip.page_of(y);
            what.height_ = 0;
            strip_.repeated_.push_back(&what);
        }
        ~Repeating() { strip_.repeated_.pop_back(); }
        Repeating(const Repeating&) = delete;
        Repeating& operator=(const Repeating&) = delete;

    private:
        Strip& strip_;
    };

    // A mark in lengths of the strip, on the page where it begins. Fills, pictures and upright lines go on on
    // the next pages.
    void put(pages::Mark mark);
    // A line that does not go on, on the page of y.
    void put_edge(pages::LineMark line, double y);
    // What a box is on each of its pages, under what is repeated there; nothing in a rehearsal.
    std::vector<pages::Box> parts(const pages::Box& box) const;
    void record(double y, const ReportItem& item, const Variant& value);

    // A place among the marks, to fill in later what lies behind those that followed.
    struct Behind
    {
        std::size_t page = 0, index = 0;
    };
    Behind behind(double y);
    void put_behind(const Behind& place, const pages::FillMark& fill);

    // Nothing more will be put above y: pages before its own are done.
    void complete_before(double y);
    void complete();

private:
    Draft& draft(std::size_t page);
    double under_repeated(std::size_t page);
    double repeated_height() const;
    double top_of(std::size_t page) const { return static_cast<double>(page) * page_height_; }
    void put_on(std::size_t page, pages::Mark mark);

    double page_height_, enough_ = 0;
    Take take_;
    std::deque<Draft> drafts_;
    std::size_t first_ = 0; // the page of the first draft
    double fresh_ = 0;      // the y that the last break led to
    std::vector<Repeated*> repeated_;
    bool is_repeating_ = false; // what is repeated is being put
};

} // namespace tolvex::printing
