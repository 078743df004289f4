// How a form comes to stand on the screen: its window, its controls and their places.
#include "platform/windows/forms/form_window.hpp"

#include <algorithm>

namespace tolvex {

namespace {

// A dialog without controls; its size is never seen.
struct alignas(DWORD) EmptyDialog
{
    DLGTEMPLATE dialog;
    WORD menu = 0, window_class = 0, title = 0;
};

DWORD window_style(const FormDescription& description)
{
    const DWORD frame = description.resizable ? WS_OVERLAPPEDWINDOW : WS_CAPTION | WS_SYSMENU | DS_MODALFRAME;
    return frame | WS_POPUP | WS_CLIPCHILDREN;
}

LONG width(const RECT& box) { return box.right - box.left; }
LONG height(const RECT& box) { return box.bottom - box.top; }

RECT window_box(HWND window)
{
    RECT box{};
    GetWindowRect(window, &box);
    return box;
}

SIZE client_size(HWND window)
{
    RECT client{};
    GetClientRect(window, &client);
    return {client.right, client.bottom};
}

} // namespace

void FormWindow::create(HWND owner)
{
    EmptyDialog empty{};
    empty.dialog.style = window_style(description_);
    empty.dialog.dwExtendedStyle = WS_EX_CONTROLPARENT;
    empty.dialog.cx = empty.dialog.cy = 100;
    if (!CreateDialogIndirectParamW(this_module(), &empty.dialog, owner, procedure,
                                    reinterpret_cast<LPARAM>(this)))
        throw Error(numbers::internal, u"La ventana no se pudo crear: " + system_message(GetLastError()));
    create_controls();
    set_font(dots_per_inch(handle_));
    measure();
    resize(least_);
    move_to_middle_of(owner);
}

void FormWindow::create_controls()
{
    const FormLayout layout = lay_out(description_);
    if (!description_.tools.empty())
        tool_bar_ = std::make_unique<ToolBar>(handle_, description_.tools, first_tool);
    for (const PlacedFrame& frame : layout.frames)
        frames_.push_back({create_frame(handle_, frame.caption), frame.page});
    if (!layout.pages.empty()) tabs_ = std::make_unique<PageTabs>(handle_, layout.pages);
    controls_.reserve(layout.controls.size());
    for (const PlacedControl& placed : layout.controls)
        controls_.push_back(
            create_control(handle_, placed, first_control + static_cast<int>(controls_.size())));
    show_page();
    if (!description_.enter_moves && !description_.buttons.empty()) {
        const std::size_t first_button = controls_.size() - description_.buttons.size();
        SendMessageW(handle_, DM_SETDEFID, static_cast<WPARAM>(first_control) + first_button, 0);
    }
    // Focus and access keys are seen from the start.
    SendMessageW(handle_, WM_CHANGEUISTATE, MAKEWPARAM(UIS_CLEAR, UISF_HIDEFOCUS | UISF_HIDEACCEL), 0);
}

void FormWindow::set_font(int dots_per_inch)
{
    auto font = std::make_unique<FormFont>(dots_per_inch);
    if (tool_bar_) tool_bar_->set_font(*font, lay_out(description_).tool_bar);
    if (tabs_) tolvex::set_font(tabs_->window(), *font);
    for (const NativeFrame& frame : frames_) tolvex::set_font(frame.window, *font);
    for (const NativeControl& control : controls_) tolvex::set_font(control, *font);
    font_ = std::move(font);
}

// The smallest size: that of the layout and what the frame adds to it.
void FormWindow::measure()
{
    const Size least = lay_out(description_).size;
    const RECT outer = window_box(handle_);
    const SIZE inner = client_size(handle_);
    least_ = {width(outer) - inner.cx + font_->pixels_across(least.width),
              height(outer) - inner.cy + font_->pixels_down(least.height)};
}

void FormWindow::resize(SIZE size)
{
    SetWindowPos(handle_, nullptr, 0, 0, size.cx, size.cy, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    place_controls();
}

void FormWindow::place_controls()
{
    const FormLayout layout = lay_out(description_, font_->units(client_size(handle_)));
    if (tool_bar_) tool_bar_->place(font_->pixels(layout.tool_bar));
    if (tabs_) move_window(tabs_->window(), font_->pixels(layout.tabs));
    for (std::size_t i = 0; i < frames_.size(); ++i)
        move_window(frames_[i].window, font_->pixels(layout.frames[i].box));
    for (std::size_t i = 0; i < controls_.size(); ++i)
        place_control(controls_[i], layout.controls[i], *font_);
}

// Brings the chosen page forward; the keys go to it if a control that went had them.
void FormWindow::show_page()
{
    const TextView chosen = chosen_page();
    for (const NativeControl& control : controls_) show_control(control, chosen);
    for (const NativeFrame& frame : frames_) show_frame(frame, chosen);
    if (IsChild(handle_, GetFocus()) && !IsWindowVisible(GetFocus())) focus_first();
}

// In the middle of its owner, or of the screen; its caption stays in sight.
void FormWindow::move_to_middle_of(HWND owner)
{
    MONITORINFO monitor{};
    monitor.cbSize = sizeof monitor;
    GetMonitorInfoW(MonitorFromWindow(owner ? owner : GetForegroundWindow(), MONITOR_DEFAULTTOPRIMARY),
                    &monitor);
    const bool on_owner = owner && IsWindowVisible(owner) && !IsIconic(owner);
    const RECT room = monitor.rcWork, middle = on_owner ? window_box(owner) : room;
    const auto place = [](LONG centre, LONG size, LONG from, LONG to) {
        return std::max(from, std::min(centre - size / 2, to - size));
    };
    SetWindowPos(handle_, nullptr, place((middle.left + middle.right) / 2, least_.cx, room.left, room.right),
                 place((middle.top + middle.bottom) / 2, least_.cy, room.top, room.bottom), 0, 0,
                 SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void FormWindow::change_resolution(int dots_per_inch, const RECT& suggested)
{
    set_font(dots_per_inch);
    measure();
    SetWindowPos(handle_, nullptr, suggested.left, suggested.top, 0, 0,
                 SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
    resize(description_.resizable ? SIZE{width(suggested), height(suggested)} : least_);
}

} // namespace tolvex
