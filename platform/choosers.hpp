// Lets the user pick a folder or a file. A host without windows picks nothing.
#pragma once

#include "core/text.hpp"

namespace tolvex {

// A window of the host's own system, known to its adapter only; null for none.
struct NativeWindow;
using WindowHandle = NativeWindow*;

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
