// The public surface as automation hosts see it: one description of the six classes, from which dispatch, the
// entry points of early-bound calls, registration and the type library are made.
#pragma once

#include "automation/description.hpp"

namespace tolvex::automation {

const std::vector<Class>& surface();

} // namespace tolvex::automation
