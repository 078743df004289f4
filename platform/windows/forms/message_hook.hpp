// Gives our windows their dialog keys (Tab, Enter, access keys) under whatever message loop the host runs.
#pragma once

#include "platform/windows/windows.hpp"

namespace tolvex {

// Watches the messages of the thread that makes it.
class MessageHook
{
public:
    MessageHook();
    ~MessageHook() { UnhookWindowsHookEx(hook_); }
    MessageHook(const MessageHook&) = delete;

private:
    HHOOK hook_;
};

} // namespace tolvex
