#include "platform/messages.hpp"

#include <cstdio>

namespace tolvex {

void show_message_natively(const Text& text, const Text& title, MessageStyle)
{
    std::fprintf(stderr, "%s: %s\n", to_utf8(title).c_str(), to_utf8(text).c_str());
}

} // namespace tolvex
