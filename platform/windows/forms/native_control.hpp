// One control of a form as a window, with its label before it.
#pragma once

#include "platform/windows/forms/list_view.hpp"

namespace tolvex {

struct NativeControl
{
    const Control* control;
    HWND window;
    HWND label = nullptr;
    TextView page = {};
    bool visible = true;          // while its page is in front
    std::vector<Item> items = {}; // of a combo box
    std::unique_ptr<ListView> list = {};
    Background background = Background::plain;
};

struct NativeFrame
{
    HWND window;
    TextView page;
};

NativeControl create_control(HWND form, const PlacedControl& placed, int id);
HWND create_frame(HWND form, TextView caption);

void place_control(const NativeControl& control, const PlacedControl& placed, const FormFont& font);
void move_window(HWND window, const RECT& place);
void show_control(const NativeControl& control, TextView chosen_page);
void show_frame(const NativeFrame& frame, TextView chosen_page);
void set_font(const NativeControl& control, const FormFont& font);
void set_font(HWND window, const FormFont& font);

} // namespace tolvex
