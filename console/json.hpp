// JSON as programs read it (RFC 8259).
#pragma once

#include <string>

namespace tolvex::console {

// A text in UTF-8 as a JSON string, in its quotes.
std::string json_text(const std::string& utf8);

} // namespace tolvex::console
