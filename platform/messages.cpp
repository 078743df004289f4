#include "platform/messages.hpp"

#include <utility>

namespace tolvex {

namespace {

MessageHandler& handler()
{
    static MessageHandler current;
    return current;
}

} // namespace

void set_message_handler(MessageHandler replacement) { handler() = std::move(replacement); }

void show_message(const Text& text, const Text& title, MessageStyle style)
{
    if (handler())
        handler()(text, title, static_cast<int>(style));
    else
        show_message_natively(text, title, style);
}

} // namespace tolvex
