#include "platform/windows/forms/form_window.hpp"

#include "platform/windows/forms/visual_styles.hpp"

#include <algorithm>

namespace tolvex {

namespace {

constexpr int first_control = 100, first_tool = 1000;
constexpr UINT event_message = WM_APP, close_message = WM_APP + 1;

// Nothing of it is destroyed at the end of the process: other modules may be gone by then.
std::vector<std::shared_ptr<FormWindow>>& open_windows()
{
    static auto& windows = *new std::vector<std::shared_ptr<FormWindow>>;
    return windows;
}

// A host may let go of the component while its windows are open.
void stay_loaded()
{
    HMODULE pinned;
    GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_PIN,
                       reinterpret_cast<const wchar_t*>(this_module()), &pinned);
}

// A dialog without controls; its size is never seen.
struct EmptyDialog
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

// --- opening ---

std::shared_ptr<FormWindow> FormWindow::open_modal(Form& form)
{
    const auto made = std::make_shared<FormWindow>(form, nullptr);
    made->make(GetActiveWindow());
    return made;
}

std::shared_ptr<FormWindow> FormWindow::open(std::unique_ptr<Form> form)
{
    Form& shown = *form;
    const auto made = std::make_shared<FormWindow>(shown, std::move(form));
    made->make(nullptr);
    return made;
}

void FormWindow::make(HWND owner)
try {
    stay_loaded();
    const VisualStyles styles;
    create(owner);
    create_controls();
    set_font(dots_per_inch(handle_));
    take_least_size();
    place_controls();
    move_to_middle_of(owner);
    loaded_ = true;
    run([this] { form_.load(*this); });
} catch (...) {
    destroy();
    throw;
}

FormWindow* FormWindow::of(HWND window)
{
    const HWND root = GetAncestor(window, GA_ROOT);
    for (const auto& open : open_windows())
        if (root && open->handle_ == root) return open.get();
    return nullptr;
}

void FormWindow::close_older(TextView name)
{
    const auto windows = open_windows();
    for (const auto& open : windows) {
        if (!open->owned_ || open->description_.name != name) continue;
        const DWORD thread = GetWindowThreadProcessId(open->handle_, nullptr);
        if (thread == 0) // it has ended, and the window with it
            std::erase(open_windows(), open);
        else if (open->running_ || thread != GetCurrentThreadId())
            open->close();
        else
            open->destroy();
    }
}

FormWindow::FormWindow(Form& form, std::unique_ptr<Form> owned)
    : owned_(std::move(owned)), form_(form), description_(form.description())
{}

FormWindow::~FormWindow() = default;

void FormWindow::create(HWND owner)
{
    EmptyDialog empty{};
    empty.dialog.style = window_style(description_);
    empty.dialog.dwExtendedStyle = WS_EX_CONTROLPARENT;
    empty.dialog.cx = empty.dialog.cy = 100;
    open_windows().push_back(shared_from_this());
    if (!CreateDialogIndirectParamW(this_module(), &empty.dialog, owner, procedure,
                                    reinterpret_cast<LPARAM>(this))) {
        const DWORD code = GetLastError();
        std::erase(open_windows(), shared_from_this());
        throw Error(numbers::internal, u"La ventana no se pudo crear: " + system_message(code));
    }
}

void FormWindow::create_controls()
{
    const FormLayout layout = lay_out(description_);
    if (!description_.tools.empty())
        tool_bar_ = std::make_unique<ToolBar>(handle_, description_.tools, first_tool);
    for (const PlacedFrame& frame : layout.frames) frames_.push_back(create_frame(handle_, frame.caption));
    controls_.reserve(layout.controls.size());
    for (const PlacedControl& placed : layout.controls)
        controls_.push_back(
            create_control(handle_, placed, first_control + static_cast<int>(controls_.size())));
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
    for (const HWND frame : frames_) tolvex::set_font(frame, *font);
    for (const NativeControl& control : controls_) tolvex::set_font(control, *font);
    font_ = std::move(font);
}

void FormWindow::take_least_size()
{
    const Size least = lay_out(description_).size;
    const RECT outer = window_box(handle_);
    const SIZE inner = client_size(handle_);
    least_ = {width(outer) - inner.cx + font_->pixels_across(least.width),
              height(outer) - inner.cy + font_->pixels_down(least.height)};
    SetWindowPos(handle_, nullptr, 0, 0, least_.cx, least_.cy, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void FormWindow::place_controls()
{
    const FormLayout layout = lay_out(description_, font_->units(client_size(handle_)));
    if (tool_bar_) tool_bar_->place(font_->pixels(layout.tool_bar));
    for (std::size_t i = 0; i < frames_.size(); ++i)
        move_window(frames_[i], font_->pixels(layout.frames[i].box));
    for (std::size_t i = 0; i < controls_.size(); ++i)
        place_control(controls_[i], layout.controls[i], *font_);
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

void FormWindow::show()
{
    if (closing_) return;
    ShowWindow(handle_, SW_SHOW);
    SetForegroundWindow(handle_);
    focus_first();
}

// --- messages ---

INT_PTR CALLBACK FormWindow::procedure(HWND window, UINT message, WPARAM first, LPARAM second) noexcept
try {
    if (message == WM_INITDIALOG) {
        SetWindowLongPtrW(window, DWLP_USER, second);
        reinterpret_cast<FormWindow*>(second)->handle_ = window;
        return FALSE;
    }
    auto* const form = reinterpret_cast<FormWindow*>(GetWindowLongPtrW(window, DWLP_USER));
    if (!form) return FALSE;
    const auto alive = form->shared_from_this(); // until the message is over
    return form->answer(message, first, second);
} catch (...) {
    return FALSE; // without memory the message is as if it had not come
}

INT_PTR FormWindow::answer(UINT message, WPARAM first, LPARAM second)
{
    switch (message) {
    case WM_COMMAND:
        commanded(LOWORD(first), HIWORD(first));
        return TRUE;
    case WM_NOTIFY:
        return answer(*reinterpret_cast<const NMHDR*>(second));
    case event_message:
        run_posted(static_cast<int>(first));
        return TRUE;
    case WM_SIZE:
        if (font_) place_controls();
        return FALSE;
    case WM_GETMINMAXINFO:
        reinterpret_cast<MINMAXINFO*>(second)->ptMinTrackSize = {least_.cx, least_.cy};
        return TRUE;
    case WM_CTLCOLOREDIT:
    case WM_CTLCOLORSTATIC:
    case WM_CTLCOLORLISTBOX:
        return reinterpret_cast<INT_PTR>(
            background_of(reinterpret_cast<HDC>(first), reinterpret_cast<HWND>(second)));
    case WM_SETCURSOR:
        return show_busy_cursor();
    case WM_DPICHANGED:
        change_resolution(LOWORD(first), *reinterpret_cast<const RECT*>(second));
        return TRUE;
    case WM_CLOSE:
        close();
        return TRUE;
    case close_message:
        if (!running_) finish();
        return TRUE;
    case WM_ENDSESSION:
        if (first) destroy();
        return TRUE;
    case WM_DESTROY:
        destroyed();
        return FALSE;
    case WM_NCDESTROY:
        SetWindowLongPtrW(handle_, DWLP_USER, 0);
        handle_ = nullptr;
        std::erase(open_windows(), shared_from_this());
        return FALSE;
    }
    return FALSE;
}

INT_PTR FormWindow::answer(const NMHDR& notification)
{
    const NativeControl* control = control_of(notification.hwndFrom);
    if (!control || !control->list) return FALSE;
    if (notification.code == LVN_GETDISPINFOW)
        control->list->give_text(reinterpret_cast<NMLVDISPINFOW*>(const_cast<NMHDR*>(&notification))->item);
    if (notification.code == NM_DBLCLK && reinterpret_cast<const NMITEMACTIVATE&>(notification).iItem >= 0)
        PostMessageW(handle_, event_message, notification.idFrom, 0);
    return TRUE;
}

void FormWindow::commanded(int id, int code)
{
    const auto index = static_cast<std::size_t>(id - first_control);
    const bool is_control = id >= first_control && index < controls_.size();
    const ControlKind kind = is_control ? controls_[index].control->kind : ControlKind::label;
    if (id >= first_tool || (kind == ControlKind::button && code == BN_CLICKED) ||
        (kind == ControlKind::combo && code == CBN_SELCHANGE))
        PostMessageW(handle_, event_message, static_cast<WPARAM>(id), 0);
}

void FormWindow::run_posted(int id)
{
    if (id >= first_tool) {
        const Tool& tool = description_.tools.at(static_cast<std::size_t>(id - first_tool));
        return run([&] { form_.clicked(*this, tool.key); });
    }
    const Control& control = *controls_.at(static_cast<std::size_t>(id - first_control)).control;
    run([&] {
        if (control.kind == ControlKind::list)
            form_.row_activated(*this, control.name);
        else if (control.kind == ControlKind::combo)
            form_.item_chosen(*this, control.name);
        else
            form_.clicked(*this, control.name);
    });
}

// Another event that comes while one runs, from a second click, is none.
void FormWindow::run(const std::function<void()>& event)
{
    if (closing_ || running_) return;
    running_ = true;
    run_event(event);
    running_ = false;
    if (close_wanted_) finish();
}

bool FormWindow::takes_key(MSG& message)
{
    if (message.message == WM_KEYDOWN) {
        if (description_.enter_moves && moves_focus(message)) return true;
        const NativeControl* control = control_of(message.hwnd);
        if (message.wParam == VK_RETURN && control && control->list) {
            PostMessageW(handle_, event_message, static_cast<WPARAM>(GetDlgCtrlID(message.hwnd)), 0);
            return true;
        }
    }
    return IsDialogMessageW(handle_, &message);
}

bool FormWindow::moves_focus(const MSG& key)
{
    if (key.wParam != VK_RETURN && key.wParam != VK_ESCAPE) return false;
    const NativeControl* control = control_of(key.hwnd);
    const bool dropped_down = control && control->control->kind == ControlKind::combo &&
                              SendMessageW(control->window, CB_GETDROPPEDSTATE, 0, 0);
    if (!dropped_down) focus_next(key.wParam == VK_ESCAPE);
    return !dropped_down;
}

void FormWindow::focus_next(bool backwards)
{
    const HWND next = GetNextDlgTabItem(handle_, GetFocus(), backwards);
    SendMessageW(handle_, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(next), TRUE);
}

// Where something can be typed or chosen.
void FormWindow::focus_first()
{
    for (const auto& [control, window, label, items, list, background] : controls_) {
        if (control->kind == ControlKind::label || control->read_only) continue;
        if (!IsWindowEnabled(window) || !IsWindowVisible(window)) continue;
        SendMessageW(handle_, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(window), TRUE);
        return;
    }
}

HBRUSH FormWindow::background_of(HDC paper, HWND window) const
{
    constexpr COLORREF red = RGB(255, 0, 0), black = RGB(0, 0, 0);
    static const HBRUSH alarm = CreateSolidBrush(red);
    const NativeControl* control = control_of(window);
    if (!control || control->background != Background::alarm) return nullptr;
    SetBkColor(paper, red);
    SetTextColor(paper, black);
    return alarm;
}

bool FormWindow::show_busy_cursor()
{
    if (!busy_) return false;
    SetCursor(LoadCursorW(nullptr, IDC_WAIT));
    SetWindowLongPtrW(handle_, DWLP_MSGRESULT, TRUE);
    return true;
}

void FormWindow::change_resolution(int dots_per_inch, const RECT& suggested)
{
    set_font(dots_per_inch);
    SetWindowPos(handle_, nullptr, suggested.left, suggested.top, width(suggested), height(suggested),
                 SWP_NOZORDER | SWP_NOACTIVATE);
    take_least_size();
    place_controls();
}

// --- closing ---

void FormWindow::close()
{
    close_wanted_ = true;
    PostMessageW(handle_, close_message, 0, 0);
}

void FormWindow::finish()
{
    closing_ = true;
    if (owned_) destroy();
}

void FormWindow::destroy()
{
    if (handle_) DestroyWindow(handle_);
}

void FormWindow::destroyed()
{
    closing_ = true;
    if (loaded_) run_event([this] { form_.unload(*this); });
    loaded_ = false;
    PostThreadMessageW(GetCurrentThreadId(), WM_NULL, 0, 0); // a modal loop may be waiting
}

} // namespace tolvex
