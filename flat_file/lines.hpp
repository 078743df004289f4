// The lines of a flat file, whatever system wrote it.
#pragma once

#include "core/text.hpp"

namespace tolvex {

// UTF-8, with or without its mark, or else Windows-1252; lines end at LF or CR LF. Throws Error 53, 57 or 75.
std::vector<Text> lines_of_file(const Text& path);

// Empty lines, and those that begin with "#", hold no record.
bool is_skipped(const Text& line);

} // namespace tolvex
