#include "platform/messages.hpp"

#include "platform/windows/windows.hpp"

namespace tolvex {

void show_message_natively(const Text& text, const Text& title, MessageStyle style)
{
    MessageBoxW(GetActiveWindow(), wide(text), wide(title), MB_OK | MB_TASKMODAL | static_cast<UINT>(style));
}

} // namespace tolvex
