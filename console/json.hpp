// JSON as programs read it (RFC 8259).
#pragma once

#include <string>

namespace tolvex::console {

// A text in UTF-8 as a JSON string, in its quotes.
std::string json_text(const std::string& utf8);
// What a number is written as in JSON, as it stands; any other text as a string.
std::string json_number(const std::string& text);

} // namespace tolvex::console
