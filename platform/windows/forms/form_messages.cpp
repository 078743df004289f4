// What a form's window is told: messages of the system, events of its controls, keys.
#include "platform/windows/component_call.hpp"
#include "platform/windows/forms/form_window.hpp"

#include <algorithm>

namespace tolvex {

INT_PTR CALLBACK FormWindow::procedure(HWND window, UINT message, WPARAM first, LPARAM second) noexcept
try {
    const ComponentCall call;
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
        return answer(*reinterpret_cast<NMHDR*>(second));
    case event_message:
        run_posted(static_cast<int>(first));
        return TRUE;
    case ListView::rows_message:
        controls_.at(first - first_control).list->show_rows();
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
        forget();
        return FALSE;
    }
    return FALSE;
}

INT_PTR FormWindow::answer(NMHDR& notification)
{
    if (tabs_ && notification.hwndFrom == tabs_->window() && notification.code == TCN_SELCHANGE) show_page();
    const NativeControl* control = control_of(notification.hwndFrom);
    if (!control || !control->list) return FALSE;
    if (notification.code == LVN_GETDISPINFOW)
        control->list->give_text(reinterpret_cast<NMLVDISPINFOW&>(notification).item);
    if (notification.code == NM_DBLCLK && reinterpret_cast<NMITEMACTIVATE&>(notification).iItem >= 0)
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
        if (turns_page(message)) return true;
        if (description_.enter_moves && moves_focus(message)) return true;
        const NativeControl* control = control_of(message.hwnd);
        if (message.wParam == VK_RETURN && control && control->list) {
            PostMessageW(handle_, event_message, static_cast<WPARAM>(GetDlgCtrlID(message.hwnd)), 0);
            return true;
        }
    }
    return IsDialogMessageW(handle_, &message);
}

// Ctrl+Tab and Ctrl+Shift+Tab.
bool FormWindow::turns_page(const MSG& key)
{
    if (!tabs_ || key.wParam != VK_TAB || GetKeyState(VK_CONTROL) >= 0) return false;
    tabs_->choose_next(GetKeyState(VK_SHIFT) < 0);
    show_page();
    return true;
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
    const auto first = std::find_if(controls_.begin(), controls_.end(), [](const NativeControl& c) {
        return c.control->kind != ControlKind::label && !c.control->read_only && IsWindowEnabled(c.window) &&
               IsWindowVisible(c.window);
    });
    if (first != controls_.end())
        SendMessageW(handle_, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(first->window), TRUE);
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

} // namespace tolvex
