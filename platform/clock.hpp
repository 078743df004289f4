// The moment, as the host's clock and time zone tell it.
#pragma once

#include "tolvex/types.hpp"

namespace tolvex {

Date local_now();

} // namespace tolvex
