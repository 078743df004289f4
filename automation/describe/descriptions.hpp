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

std::string utf8(const std::wstring& text);
// Both throw std::runtime_error.
std::string read_file(const std::wstring& path);
void write_file(const std::wstring& path, const std::string& bytes);

std::wstring text_of(const GUID& id);

} // namespace tolvex::automation
