// The moment, as the host's clock and time zone tell it; and waiting.
#pragma once

#include "tolvex/types.hpp"

namespace tolvex {

Date local_now();

// Milliseconds since some moment; they never go back.
std::int64_t milliseconds_running();
void pause(int milliseconds);

} // namespace tolvex
