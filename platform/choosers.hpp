// Lets the user pick a folder or a file. A host without windows picks nothing.
#pragma once

#include "core/text.hpp"

namespace tolvex {

// Handle of the window that the chooser belongs to; null for none.
using WindowHandle = void*;

// Path of a file-system folder; empty when the user cancels. Errors count as cancelling.
Text choose_folder(WindowHandle owner, const Text& title);

// What a file dialog offers: "Certificados (*.cer)" and its pattern "*.cer".
struct FileKind
{
    Text description, pattern;
};

// Path of an existing file; empty when the user cancels.
Text choose_file(WindowHandle owner, const Text& title, const FileKind& kind);

} // namespace tolvex
