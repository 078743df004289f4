#include "platform/windows/forms/modal_loop.hpp"

#include "platform/windows/component_call.hpp"

#include <algorithm>

namespace tolvex {

namespace {

class OthersDisabled
{
public:
    explicit OthersDisabled(HWND form) : form_(form)
    {
        EnumThreadWindows(GetCurrentThreadId(), disable, reinterpret_cast<LPARAM>(this));
    }
    ~OthersDisabled()
    {
        for (const HWND other : disabled_) EnableWindow(other, TRUE);
    }
    OthersDisabled(const OthersDisabled&) = delete;

private:
    static BOOL CALLBACK disable(HWND window, LPARAM parameter) noexcept
    try {
        auto& self = *reinterpret_cast<OthersDisabled*>(parameter);
        if (window == self.form_ || !IsWindowVisible(window) || !IsWindowEnabled(window)) return TRUE;
        self.disabled_.push_back(window);
        EnableWindow(window, FALSE);
        return TRUE;
    } catch (...) {
        return FALSE;
    }

    const HWND form_;
    std::vector<HWND> disabled_;
};

void pump_until_closed(const FormWindow& form)
{
    const Interlude until_it_is_closed;
    MSG message;
    while (!form.is_closing()) {
        const BOOL got = GetMessageW(&message, nullptr, 0, 0);
        if (got == 0) PostQuitMessage(static_cast<int>(message.wParam));
        if (got <= 0) return;
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

} // namespace

void run_modal(FormWindow& form)
{
    const HWND owner = GetWindow(form.handle(), GW_OWNER);
    {
        // They are enabled again before the form goes, or another program's window would come to the front.
        const OthersDisabled others(form.handle());
        form.show();
        pump_until_closed(form);
    }
    if (owner) SetActiveWindow(owner);
    form.destroy();
}

} // namespace tolvex
