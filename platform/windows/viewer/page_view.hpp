// The part of the viewer that shows the pages: one below the other, at any scale. It paints what is seen of
// them.
#pragma once

#include "platform/pages/page_stack.hpp"
#include "platform/pages/text_search.hpp"
#include "platform/windows/pages/gdi_painter.hpp"

#include <functional>
#include <optional>

namespace tolvex {

// What the scale follows when the window changes its size.
enum class Fit
{
    nothing,
    width,
    whole_page
};

class PageView
{
public:
    // Within that window. `changed` is told when the page, the scale or what was found is another.
    PageView(HWND viewer, const std::vector<pages::Page>& pages, std::function<void()> changed);
    PageView(const PageView&) = delete;

    HWND handle() const { return handle_; }
    void set_resolution(int dots_per_inch);

    // Counted from zero.
    std::size_t page() const { return page_; }
    std::size_t page_count() const { return pages_.size(); }
    void go_to(std::size_t page);
    void go_to_end_of(std::size_t page);

    // 1 is the size of the paper.
    double zoom() const { return zoom_; }
    Fit fit() const { return fit_; }
    void set_zoom(double zoom);
    void set_fit(Fit fit);
    void zoom_in() { zoom_by_step(1, middle()); }
    void zoom_out() { zoom_by_step(-1, middle()); }

    void scroll_lines(double across, double down);
    // By what is seen at once, less a line. Where a whole page is seen, by pages.
    void scroll_screens(int down);
    // Of the window, for the pages in their real size.
    int width_of_real_size() const;
    bool is_wider_than_window() const { return stack_.width() > client_.cx; }
    void turn_wheel(WPARAM keys_and_turn, POINT on_screen);

    // Marks what is found from the current page on, and goes to the first.
    void find(TextView words);
    void find_next(int direction);
    std::size_t found_count() const { return found_.size(); }
    // Counted from zero.
    std::size_t found() const { return current_found_; }

private:
    // A place of a page that stays at a place of the window while the scale changes.
    struct Anchor
    {
        std::size_t page;
        double x, y;  // points
        double above; // in the gap above the page: its part of the gap
        POINT at;
    };

    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM first, LPARAM second) noexcept;
    LRESULT answer(UINT message, WPARAM first, LPARAM second);

    double scale() const { return zoom_ * dots_per_inch_ / 72; }
    int pixels(int at_96_dots) const { return MulDiv(at_96_dots, dots_per_inch_, 96); }
    POINT middle() const { return {client_.cx / 2, client_.cy / 2}; }
    POINT corner_of(std::size_t page) const;
    Anchor anchor(POINT at) const;
    double zoom_that_fits(Fit fit) const;
    void zoom_by_step(int direction, POINT around);
    void change_zoom(double zoom, const Anchor& anchor);
    void lay_out(const Anchor& anchor);
    void resized();
    void scroll_to(long x, long y);
    void show_scroll_bars();
    void take_page_in_sight();
    void scroll_by_bar(int bar, int code);
    void drag(POINT to);
    void reveal_found();

    void paint();
    void paint_seen(HDC device, const RECT& dirty);
    void paint_page(HDC device, std::size_t page, POINT corner);
    void paint_found(HDC device, std::size_t page, POINT corner) const;

    const std::vector<pages::Page>& pages_;
    const std::function<void()> changed_;
    HWND handle_ = nullptr;
    int dots_per_inch_ = 96;
    SIZE client_{};
    double zoom_ = 1;
    Fit fit_ = Fit::width;
    pages::PageStack stack_;
    POINT scrolled_{};
    std::size_t page_ = 0;
    bool laying_out_ = false;
    std::optional<POINT> dragged_from_;
    int turned_ = 0; // of the wheel, what is less than a line
    std::unique_ptr<GdiFonts> fonts_;
    GdiPictures pictures_;
    std::optional<pages::TextSearch> search_; // made when something is first looked for
    std::vector<pages::Found> found_;
    std::size_t current_found_ = 0;
};

} // namespace tolvex
