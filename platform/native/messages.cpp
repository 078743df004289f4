#include "platform/messages.hpp"

#include "platform/terminal.hpp"

namespace tolvex {

MessageAnswer show_natively(const Message& message) { return terminal::show(message); }

} // namespace tolvex
