// The pictures of the tool bar, drawn at whatever size is needed.
#pragma once

#include "platform/forms.hpp"
#include "platform/windows/windows.hpp"

namespace tolvex {

// A square bitmap with transparency, soft at its edges; the caller deletes it.
HBITMAP draw_icon(Icon icon, int pixels);

} // namespace tolvex
