// The public surface in the languages that hosts read.
#pragma once

#include "automation/surface.hpp"

namespace tolvex::automation {

// Throws Error with the step that failed.
void write_type_library(const Text& path, SYSKIND system);

// The dual interfaces as C++ declarations.
std::wstring cpp_header();
// The component as an assembly for the processor architecture ("x86", "amd64").
std::wstring manifest(const std::wstring& architecture);

} // namespace tolvex::automation
