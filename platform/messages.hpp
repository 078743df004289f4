// Messages to the user.
#pragma once

#include "tolvex/tolvex.hpp"

namespace tolvex {

// Box styles as automation hosts number them.
enum class MessageStyle
{
    plain = 0,
    critical = 16,
    exclamation = 48,
    information = 64
};

// The title of messages that state none.
inline constexpr char16_t component_title[] = u"TOLVEX";

// Shows a message with an OK button and waits until it is read. Goes to the host's handler if it has set one.
void show_message(const Text& text, const Text& title = component_title,
                  MessageStyle style = MessageStyle::plain);

// How this host shows a message when no handler is set: an adapter's work.
void show_message_natively(const Text& text, const Text& title, MessageStyle style);

} // namespace tolvex
