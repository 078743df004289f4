// The characters of Windows code page 1252: a PDF file writes them with a byte each, whatever the font.
#pragma once

#include "core/text.hpp"

namespace tolvex::pages {

// All that can be seen, and the blanks, in ascending order.
const Text& western_characters();

// Its byte; 0 for a character that the code page lacks.
unsigned char western_byte(char16_t c);

} // namespace tolvex::pages
