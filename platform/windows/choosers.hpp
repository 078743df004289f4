// The system's folder browser and file dialog.
#pragma once

#include "platform/forms.hpp"

namespace tolvex {

// Empty when the user cancels; errors count as cancelling.
Text choose_folder(WindowHandle owner, const Text& title);
Text choose_file(WindowHandle owner, const Text& title, const FileKind& kind);

} // namespace tolvex
