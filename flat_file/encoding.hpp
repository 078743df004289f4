// In which encoding a flat file was written, and its text.
#pragma once

#include "tolvex/types.hpp"

namespace tolvex {

enum class Encoding
{
    utf8,
    windows_1252,
    code_page_850 // programs of DOS
};

// Found out from the bytes: a file with more sound UTF-8 characters than bytes that are none is taken for
// UTF-8. Throws Error 5 for UTF-16, for lines that end in CR alone, and for what looks like code page 850,
// with what to do.
Encoding encoding_of(std::string_view bytes);

// Bytes that are no UTF-8 become U+FFFD.
Text decoded(std::string_view bytes, Encoding encoding);

} // namespace tolvex
