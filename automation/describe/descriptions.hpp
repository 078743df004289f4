// The public surface in the languages that hosts read.
#pragma once

#include "automation/surface.hpp"

#include <string>

namespace tolvex::automation {

// Throws std::runtime_error with the step that failed.
void write_type_library(const std::wstring& path, SYSKIND system);

// The dual interfaces as C++ declarations.
std::wstring cpp_header();
// The component as an assembly for the processor architecture ("x86", "amd64").
std::wstring manifest(const std::wstring& architecture);

// UTF-8. Throws std::runtime_error.
void write_text(const std::wstring& path, const std::wstring& text);

std::wstring text_of(const GUID& id);

} // namespace tolvex::automation
