#include "platform/terminal.hpp"

#include <cstdio>

namespace tolvex::terminal {

namespace {

bool says_yes()
{
    if (!takes_answers()) return false;
    std::fputs("¿Sí o no? [s/N] ", stderr);
    char answer[16] = {};
    return std::fgets(answer, sizeof answer, stdin) && (answer[0] == 's' || answer[0] == 'S');
}

} // namespace

MessageAnswer show(const Message& message)
{
    std::fprintf(stderr, "%s: %s\n", to_utf8(message.title).c_str(), to_utf8(message.text).c_str());
    if (message.buttons == MessageButtons::ok) return MessageAnswer::ok;
    return says_yes() ? MessageAnswer::yes : MessageAnswer::no;
}

} // namespace tolvex::terminal
