// Lets test failures show amounts and dates as people read them.
#pragma once

#include "core/display_patterns.hpp"
#include "core/numbers.hpp"
#include "tolvex/messages.hpp"

#include <ostream>

namespace tolvex {

inline void PrintTo(Currency amount, std::ostream* out) { *out << to_utf8(amount_as_text(amount)); }
inline void PrintTo(Date date, std::ostream* out) { *out << to_utf8(format(date, u"yyyy-mm-dd hh:mm:ss")); }
inline void PrintTo(const Message& message, std::ostream* out)
{
    *out << to_utf8(message.title + u": " + message.text) << " (" << static_cast<int>(message.icon) << ')';
}

} // namespace tolvex
