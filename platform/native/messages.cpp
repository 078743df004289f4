#include "platform/messages.hpp"

#include <cstdio>
#include <unistd.h>

namespace tolvex {

namespace {

// "s" or "S" on the terminal; without one nobody can say yes.
bool says_yes()
{
    if (!isatty(STDIN_FILENO)) return false;
    std::fputs("¿Sí o no? [s/N] ", stderr);
    char answer[16] = {};
    return std::fgets(answer, sizeof answer, stdin) && (answer[0] == 's' || answer[0] == 'S');
}

} // namespace

MessageAnswer show_natively(const Message& message)
{
    std::fprintf(stderr, "%s: %s\n", to_utf8(message.title).c_str(), to_utf8(message.text).c_str());
    if (message.buttons == MessageButtons::ok) return MessageAnswer::ok;
    return says_yes() ? MessageAnswer::yes : MessageAnswer::no;
}

} // namespace tolvex
