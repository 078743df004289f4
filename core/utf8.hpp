// UTF-8, in which text comes in and goes out. to_text and to_utf8 are public: tolvex/types.hpp.
#pragma once

#include "tolvex/types.hpp"

namespace tolvex {

// As RFC 3629 defines it: no overlong forms, no surrogates, nothing past U+10FFFF.
bool is_valid_utf8(std::string_view bytes);
// Bytes of the character at their start, 1 to 4; 0 when they do not begin with one.
std::size_t utf8_length(std::string_view bytes);

} // namespace tolvex
