// Base64 (RFC 4648, 4), in which XML documents carry pictures.
#pragma once

#include "tolvex/types.hpp"

#include <optional>

namespace tolvex {

// The bytes; white space anywhere is skipped. Nothing for a text with other characters, or that ends in the
// middle.
std::optional<std::string> from_base64(TextView text);

} // namespace tolvex
