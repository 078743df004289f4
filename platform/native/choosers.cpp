#include "platform/choosers.hpp"

namespace tolvex {

Text choose_folder(WindowHandle, const Text&) { return {}; }

Text choose_file(WindowHandle, const Text&, const FileKind&) { return {}; }

} // namespace tolvex
