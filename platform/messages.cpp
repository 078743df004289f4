#include "platform/messages.hpp"

#include <utility>

namespace tolvex {

namespace {

MessageHandler& handler()
{
    static MessageHandler current;
    return current;
}

MessageAnswer show(const Message& message) { return handler() ? handler()(message) : show_natively(message); }

} // namespace

void set_message_handler(MessageHandler replacement) { handler() = std::move(replacement); }

void show_message(const Text& text, const Text& title, MessageIcon icon)
{
    show({text, title, icon, MessageButtons::ok});
}

bool ask(const Text& question, const Text& title, MessageIcon icon)
{
    return show({question, title, icon, MessageButtons::yes_no}) == MessageAnswer::yes;
}

} // namespace tolvex
