#include "platform/windows/forms/message_hook.hpp"

#include "platform/windows/component_call.hpp"

#include <algorithm>
#include <vector>

namespace tolvex {

namespace {

std::vector<KeyTaker*>& takers()
{
    static auto& all = *new std::vector<KeyTaker*>;
    return all;
}

// The one that a window is or stands in; null when it is none of ours.
KeyTaker* taker_of(HWND window)
{
    const HWND root = GetAncestor(window, GA_ROOT);
    const auto found =
        std::find_if(takers().begin(), takers().end(), [=](KeyTaker* one) { return one->handle() == root; });
    return root && found != takers().end() ? *found : nullptr;
}

bool is_key(UINT message) { return message >= WM_KEYFIRST && message <= WM_KEYLAST; }

// What a window of ours took is nothing to the host's loop any more.
LRESULT CALLBACK watch(int code, WPARAM removed, LPARAM parameter)
{
    MSG& message = *reinterpret_cast<MSG*>(parameter);
    if (code == HC_ACTION && removed == PM_REMOVE && is_key(message.message)) {
        const ComponentCall call;
        if (KeyTaker* taker = taker_of(message.hwnd); taker && taker->takes_key(message))
            message.message = WM_NULL;
    }
    return CallNextHookEx(nullptr, code, removed, parameter);
}

} // namespace

MessageHook::MessageHook(KeyTaker& window)
    : window_(window), hook_(SetWindowsHookExW(WH_GETMESSAGE, watch, nullptr, GetCurrentThreadId()))
{
    takers().push_back(&window_);
}

MessageHook::~MessageHook()
{
    std::erase(takers(), &window_);
    UnhookWindowsHookEx(hook_);
}

} // namespace tolvex
