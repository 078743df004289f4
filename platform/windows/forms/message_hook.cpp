#include "platform/windows/forms/message_hook.hpp"

#include "platform/windows/forms/form_window.hpp"

namespace tolvex {

namespace {

bool is_key(UINT message) { return message >= WM_KEYFIRST && message <= WM_KEYLAST; }

// What a window of ours took is nothing to the host's loop any more.
LRESULT CALLBACK watch(int code, WPARAM removed, LPARAM parameter)
{
    MSG& message = *reinterpret_cast<MSG*>(parameter);
    if (code == HC_ACTION && removed == PM_REMOVE && is_key(message.message))
        if (FormWindow* form = FormWindow::of(message.hwnd); form && form->takes_key(message))
            message.message = WM_NULL;
    return CallNextHookEx(nullptr, code, removed, parameter);
}

} // namespace

MessageHook::MessageHook() : hook_(SetWindowsHookExW(WH_GETMESSAGE, watch, nullptr, GetCurrentThreadId())) {}

} // namespace tolvex
