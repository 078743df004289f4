#include "console/json.hpp"

#include <fmt/core.h>

namespace tolvex::console {

namespace {

// RFC 8259, section 7: quotation mark, backslash and control characters are escaped, nothing else must be.
std::string escaped(char c)
{
    switch (c) {
    case '"':
        return "\\\"";
    case '\\':
        return "\\\\";
    case '\b':
        return "\\b";
    case '\f':
        return "\\f";
    case '\n':
        return "\\n";
    case '\r':
        return "\\r";
    case '\t':
        return "\\t";
    }
    const auto code = static_cast<unsigned char>(c);
    return code < 0x20 ? fmt::format("\\u{:04x}", code) : std::string(1, c);
}

} // namespace

std::string json_text(const std::string& utf8)
{
    std::string quoted = "\"";
    for (const char c : utf8) quoted += escaped(c);
    return quoted + '"';
}

} // namespace tolvex::console
