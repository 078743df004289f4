// Streams of a PDF document: what a page draws, the pixels of a picture.
#pragma once

#include "platform/pages/libharu.hpp"

#include <string_view>

namespace tolvex::pages {

// A stream in memory with these bytes.
HPDF_Stream new_stream(HPDF_Doc document, std::string_view bytes);

// Puts these bytes in the place of what a stream object held.
void replace_stream(HPDF_Doc document, HPDF_Dict object, std::string_view bytes);

// Compresses what a finished stream object holds. libharu would keep it as it is until the file is written.
void compress_now(HPDF_Doc document, HPDF_Dict object);

} // namespace tolvex::pages
