// Why a call of the system failed, in Spanish whatever the locale.
#pragma once

#include "tolvex/types.hpp"

namespace tolvex {

// The reason that an errno value stands for; "error N del sistema" for one that files do not meet.
Text reason_of(int error);

} // namespace tolvex
