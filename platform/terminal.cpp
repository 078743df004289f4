#include "platform/terminal.hpp"

#include <cstdio>

namespace tolvex::terminal {

namespace {

bool says_yes()
{
    if (!takes_answers()) return false;
    print(stderr, "¿Sí o no? [s/N] ");
    char answer[16] = {};
    return std::fgets(answer, sizeof answer, stdin) && (answer[0] == 's' || answer[0] == 'S');
}

} // namespace

MessageAnswer show(const Message& message)
{
    print(stderr, to_utf8(message.title + u": " + message.text + u"\n"));
    if (message.buttons == MessageButtons::ok) return MessageAnswer::ok;
    return says_yes() ? MessageAnswer::yes : MessageAnswer::no;
}

} // namespace tolvex::terminal
