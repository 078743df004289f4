// Text as bytes of one character each: the one-to-one form in which seals are made, and the code pages in
// which Mexican users' programs write, 1252 of Windows and 850 of DOS.
#pragma once

#include "tolvex/types.hpp"

namespace tolvex {

// One character per byte, U+0000 to U+00FF.
Text text_of_bytes(std::string_view bytes);
// The bytes of a text whose characters are all below U+0100. Throws Error 5, which names the character, for
// any other.
std::string bytes_of_text(TextView text);

Text from_windows_1252(std::string_view bytes);
Text from_code_page_850(std::string_view bytes);
// Throws Error 5, which names the character, for one that the code page lacks.
std::string to_windows_1252(TextView text);

} // namespace tolvex
