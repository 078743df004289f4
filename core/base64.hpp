// Base64 (RFC 4648, 4), the form of seals, and of pictures in report layouts.
#pragma once

#include "tolvex/types.hpp"

#include <optional>

namespace tolvex {

// The bytes; white space anywhere is skipped. Nothing for a text with other characters, or that ends in the
// middle.
std::optional<std::string> from_base64(TextView text);

// In one line.
Text to_base64(std::string_view bytes);

} // namespace tolvex
