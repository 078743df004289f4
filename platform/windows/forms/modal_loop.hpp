// A message loop that ends when a form is closed, with the other windows of the thread disabled meanwhile.
#pragma once

#include "platform/windows/forms/form_window.hpp"

namespace tolvex {

// Shows the form and returns once it is closed and gone. A request to end the process closes it, and is
// passed on.
void run_modal(FormWindow& form);

} // namespace tolvex
