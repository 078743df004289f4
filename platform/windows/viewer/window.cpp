#include "platform/windows/viewer/window.hpp"

#include "platform/windows/component_call.hpp"
#include "platform/windows/forms/visual_styles.hpp"
#include "platform/windows/viewer/icons.hpp"

#include <algorithm>

namespace tolvex {

namespace {

// The documented name of the form that reports are shown in.
constexpr wchar_t class_name[] = L"FrmGenImprimirEnCrystal";

// Nothing of it is destroyed at the end of the process: other modules may be gone by then.
std::vector<std::shared_ptr<ViewerWindow>>& open_windows()
{
    static auto& windows = *new std::vector<std::shared_ptr<ViewerWindow>>;
    return windows;
}

// Windows that are made meanwhile draw at the resolution of their monitor, whatever the host has declared.
class MonitorResolution
{
public:
    MonitorResolution() : before_(set(per_monitor)) {}
    ~MonitorResolution()
    {
        if (before_) set(before_);
    }
    MonitorResolution(const MonitorResolution&) = delete;

private:
    static void* set(void* context)
    {
        using Function = void*(WINAPI*)(void*);
        static const auto function = system_function<Function>(L"user32", "SetThreadDpiAwarenessContext");
        return function ? function(context) : nullptr;
    }

    static inline void* const per_monitor = reinterpret_cast<void*>(-4); // version 2
    void* const before_;
};

void register_class(WNDPROC procedure)
{
    WNDCLASSEXW kind{};
    kind.cbSize = sizeof kind;
    kind.lpfnWndProc = procedure;
    kind.hInstance = this_module();
    kind.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    kind.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_BTNFACE + 1);
    kind.lpszClassName = class_name;
    RegisterClassExW(&kind); // fails from the second time on
}

HICON new_icon(int pixels)
{
    const GdiObject<HBITMAP> picture(shapes::drawn(viewer_picture(), pixels));
    const GdiObject<HBITMAP> mask(CreateBitmap(pixels, pixels, 1, 1, nullptr));
    ICONINFO made{TRUE, 0, 0, mask.get(), picture.get()};
    return CreateIconIndirect(&made);
}

} // namespace

void ViewerWindow::open(std::vector<pages::Page> pages, const pages::DocumentProperties& properties)
{
    stay_loaded();
    const VisualStyles styles;
    const MonitorResolution sharp;
    const auto made = std::make_shared<ViewerWindow>(std::move(pages), properties);
    open_windows().push_back(made);
    try {
        made->create();
    } catch (...) {
        made->close();
        std::erase(open_windows(), made);
        throw;
    }
}

ViewerWindow::ViewerWindow(std::vector<pages::Page> pages, const pages::DocumentProperties& properties)
    : pages_(std::move(pages)), properties_(properties), hook_(*this)
{}

ViewerWindow::~ViewerWindow()
{
    for (const HICON icon : icons_)
        if (icon) DestroyIcon(icon);
}

void ViewerWindow::create()
{
    register_class(procedure);
    if (!CreateWindowExW(WS_EX_CONTROLPARENT, class_name, wide(properties_.title),
                         WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN, CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT,
                         CW_USEDEFAULT, nullptr, nullptr, this_module(), this))
        throw Error(numbers::internal, u"La ventana no se pudo crear: " + system_message(GetLastError()));
    bar_ = std::make_unique<ViewerBar>(handle_);
    view_ = std::make_unique<PageView>(handle_, pages_, [this] {
        if (view_) bar_->show_state_of(*view_);
    });
    set_resolution(dots_per_inch(handle_));
    const RECT place = opening_place();
    SetWindowPos(handle_, nullptr, place.left, place.top, place.right - place.left, place.bottom - place.top,
                 SWP_NOZORDER | SWP_NOACTIVATE);
    bar_->show_state_of(*view_);
    ShowWindow(handle_, SW_SHOW);
    SetForegroundWindow(handle_);
    SetFocus(view_->handle());
}

// As wide as the pages in their real size with the bar in sight, as high as there is room.
RECT ViewerWindow::opening_place() const
{
    MONITORINFO monitor{};
    monitor.cbSize = sizeof monitor;
    GetMonitorInfoW(MonitorFromWindow(handle_, MONITOR_DEFAULTTOPRIMARY), &monitor);
    const RECT& room = monitor.rcWork;
    RECT outer{}, inner{};
    GetWindowRect(handle_, &outer);
    GetClientRect(handle_, &inner);
    const LONG frame = outer.right - outer.left - inner.right;
    const LONG width = std::min<LONG>(std::max(view_->width_of_real_size(), bar_->least_width()) + frame,
                                      room.right - room.left);
    const LONG height = (room.bottom - room.top) * 92 / 100;
    const LONG left = (room.left + room.right - width) / 2, top = (room.top + room.bottom - height) / 2;
    return {left, top, left + width, top + height};
}

void ViewerWindow::set_resolution(int dots_per_inch)
{
    set_icons();
    bar_->set_resolution(dots_per_inch);
    place_parts();
    view_->set_resolution(dots_per_inch);
}

void ViewerWindow::set_icons()
{
    static constexpr std::pair<WPARAM, int> kinds[] = {{ICON_SMALL, SM_CXSMICON}, {ICON_BIG, SM_CXICON}};
    for (std::size_t i = 0; i < std::size(kinds); ++i) {
        const HICON made = new_icon(MulDiv(GetSystemMetrics(kinds[i].second), dots_per_inch(handle_), 96));
        SendMessageW(handle_, WM_SETICON, kinds[i].first, reinterpret_cast<LPARAM>(made));
        if (icons_[i]) DestroyIcon(icons_[i]);
        icons_[i] = made;
    }
}

void ViewerWindow::place_parts()
{
    RECT client{};
    GetClientRect(handle_, &client);
    const int top = bar_->height();
    bar_->place(client.right);
    MoveWindow(view_->handle(), 0, top, client.right, std::max<LONG>(client.bottom - top, 0), TRUE);
}

LRESULT CALLBACK ViewerWindow::procedure(HWND window, UINT message, WPARAM first, LPARAM second) noexcept
try {
    const ComponentCall call;
    if (message == WM_NCCREATE) {
        auto* const made =
            static_cast<ViewerWindow*>(reinterpret_cast<CREATESTRUCTW*>(second)->lpCreateParams);
        made->handle_ = window;
        SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(made));
    }
    auto* const viewer = reinterpret_cast<ViewerWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (!viewer) return DefWindowProcW(window, message, first, second);
    const auto alive = viewer->shared_from_this(); // until the message is over
    return viewer->answer(message, first, second);
} catch (...) {
    return 0; // without memory the message is as if it had not come
}

LRESULT ViewerWindow::answer(UINT message, WPARAM first, LPARAM second)
{
    switch (message) {
    case WM_COMMAND:
        commanded(LOWORD(first), HIWORD(first));
        return 0;
    case command_message:
        run_posted(static_cast<ViewerCommand>(first));
        return 0;
    case WM_SIZE:
        if (view_ && first != SIZE_MINIMIZED) place_parts();
        return 0;
    case WM_GETMINMAXINFO:
        if (bar_)
            reinterpret_cast<MINMAXINFO*>(second)->ptMinTrackSize = {bar_->least_width(),
                                                                     10 * bar_->height()};
        return 0;
    case WM_MOUSEWHEEL: // from the boxes
        if (view_) SendMessageW(view_->handle(), message, first, second);
        return 0;
    case WM_ACTIVATE:
        if (LOWORD(first) == WA_INACTIVE)
            had_focus_ = GetFocus();
        else
            SetFocus(IsChild(handle_, had_focus_) ? had_focus_ : view_ ? view_->handle() : nullptr);
        return 0;
    case WM_DPICHANGED: {
        const RECT& place = *reinterpret_cast<const RECT*>(second);
        set_resolution(LOWORD(first));
        SetWindowPos(handle_, nullptr, place.left, place.top, place.right - place.left,
                     place.bottom - place.top, SWP_NOZORDER | SWP_NOACTIVATE);
        return 0;
    }
    case WM_CLOSE:
        PostMessageW(handle_, close_message, 0, 0);
        return 0;
    case close_message:
        close_wanted_ = true;
        if (!running_) close();
        return 0;
    case WM_NCDESTROY:
        SetWindowLongPtrW(handle_, GWLP_USERDATA, 0);
        handle_ = nullptr;
        std::erase(open_windows(), shared_from_this());
        return 0;
    }
    const Interlude while_it_is_moved_or_sized;
    return DefWindowProcW(handle_, message, first, second);
}

void ViewerWindow::close()
{
    if (handle_) DestroyWindow(handle_);
}

} // namespace tolvex
