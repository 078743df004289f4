// How the system speaks to the user.
#pragma once

#include "tolvex/types.hpp"

#include <functional>

namespace tolvex {

// The numbers are those of automation hosts' message boxes: style and answer.
enum class MessageIcon
{
    none = 0,
    critical = 16,
    question = 32,
    exclamation = 48,
    information = 64
};

enum class MessageButtons
{
    ok = 0,
    yes_no = 4
};

enum class MessageAnswer
{
    ok = 1,
    yes = 6,
    no = 7
};

struct Message
{
    Text text, title;
    MessageIcon icon = MessageIcon::none;
    MessageButtons buttons = MessageButtons::ok;

    friend bool operator==(const Message&, const Message&) = default;
};

// Shows a message in the host's own way and returns what the user chose.
using MessageHandler = std::function<MessageAnswer(const Message&)>;

// Without a handler, messages go to standard error and a question is answered on the terminal; where there is
// none, the answer is no.
TOLVEX_API void set_message_handler(MessageHandler handler);

} // namespace tolvex
