// The viewer's bar: buttons with pictures and, between them, the boxes for a page number and for words to
// find.
#pragma once

#include "platform/windows/forms/form_font.hpp"
#include "platform/windows/viewer/commands.hpp"
#include "platform/windows/viewer/page_view.hpp"

#include <commctrl.h>

namespace tolvex {

class ViewerBar
{
public:
    // Numbers of the boxes, for what they tell the viewer.
    static constexpr int page_box_number = 200, search_box_number = 201;

    explicit ViewerBar(HWND viewer);
    ~ViewerBar();
    ViewerBar(const ViewerBar&) = delete;

    // Draws everything anew for that resolution.
    void set_resolution(int dots_per_inch);
    // Across the top of the viewer.
    void place(int width);
    int height() const { return height_; }
    // With all of it in sight.
    int least_width() const { return least_width_; }

    HWND page_box() const { return page_box_; }
    HWND search_box() const { return search_box_; }
    // What the boxes hold.
    Text chosen_page() const;
    Text wanted_words() const;

    void show_state_of(const PageView& pages);
    void clear_search();

private:
    // A part of the bar that a box or a label takes.
    struct Room
    {
        HWND control;
        int number;     // of its place among the buttons
        int characters; // how wide it is
        bool is_box;
    };

    void add_button(ViewerCommand command, const wchar_t* tip);
    void add_gap();
    HWND add_box(int number, int characters, DWORD style);
    HWND add_label(int characters, DWORD style);
    void add_room(HWND control, int characters, bool is_box);
    void add(TBBUTTON button);
    void set_widths();
    void enable(ViewerCommand command, bool enabled);
    void check(ViewerCommand command, bool checked);

    const HWND viewer_, buttons_;
    HIMAGELIST images_ = nullptr;
    std::vector<ViewerCommand> pictures_; // in the order of the image list
    std::vector<Room> rooms_;
    HWND page_box_, page_count_, zoom_, search_box_, found_;
    std::unique_ptr<FormFont> font_;
    int dots_per_inch_ = 96, edge_ = 0, height_ = 0, least_width_ = 0;
};

} // namespace tolvex
