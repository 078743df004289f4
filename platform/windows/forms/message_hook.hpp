// Gives our windows their keys (Tab, Enter, access keys, shortcuts) under whatever message loop the host
// runs.
#pragma once

#include "platform/windows/windows.hpp"

namespace tolvex {

// A window of ours, one that stands in no other.
class KeyTaker
{
public:
    virtual HWND handle() const = 0;
    // Whether the key means something to the window or what stands in it; it has had its effect then.
    virtual bool takes_key(MSG& message) = 0;

protected:
    ~KeyTaker() = default;
};

// Watches the messages of the thread that makes it.
class MessageHook
{
public:
    explicit MessageHook(KeyTaker& window);
    ~MessageHook();
    MessageHook(const MessageHook&) = delete;

private:
    KeyTaker& window_;
    HHOOK hook_;
};

} // namespace tolvex
