// Messages to the user.
#pragma once

#include "tolvex/messages.hpp"

namespace tolvex {

// The title of messages that state none.
inline constexpr char16_t component_title[] = u"TOLVEX";

// Shows a message with an OK button and waits until it is read. Goes to the host's handler if it has set one.
void show_message(const Text& text, const Text& title = component_title,
                  MessageIcon icon = MessageIcon::none);

// Whether the user answers the question with yes.
bool ask(const Text& question, const Text& title, MessageIcon icon = MessageIcon::none);

// How this host shows a message when no handler is set: an adapter's work.
MessageAnswer show_natively(const Message& message);

} // namespace tolvex
