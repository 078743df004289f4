// The system's folder browser and file dialog.
#pragma once

#include "platform/forms.hpp"

namespace tolvex {

// Empty when the user cancels; errors count as cancelling.
Text choose_folder(WindowHandle owner, const Text& title);
Text choose_file(WindowHandle owner, const Text& title, const FileKind& kind);
// Where to write a file; one that is there already is asked about. The name gets the pattern's ending.
Text choose_new_file(WindowHandle owner, const Text& title, const FileKind& kind, const Text& name);

} // namespace tolvex
