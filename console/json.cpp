#include "console/json.hpp"

#include <string_view>

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
    constexpr auto digits = "0123456789abcdef";
    const auto code = static_cast<unsigned char>(c);
    return code < 0x20 ? std::string("\\u00") + digits[code / 16] + digits[code % 16] : std::string(1, c);
}

// RFC 8259, section 6, without an exponent.
bool is_number(std::string_view text)
{
    const auto take_digits = [&] {
        const std::string_view digits = text.substr(0, text.find_first_not_of("0123456789"));
        text.remove_prefix(digits.size());
        return digits;
    };
    if (text.starts_with('-')) text.remove_prefix(1);
    const std::string_view whole = take_digits();
    if (whole.empty() || (whole.size() > 1 && whole.starts_with('0'))) return false;
    if (text.empty()) return true;
    if (!text.starts_with('.')) return false;
    text.remove_prefix(1);
    return !take_digits().empty() && text.empty();
}

} // namespace

std::string json_text(const std::string& utf8)
{
    std::string quoted = "\"";
    for (const char c : utf8) quoted += escaped(c);
    return quoted + '"';
}

std::string json_number(const std::string& text) { return is_number(text) ? text : json_text(text); }

} // namespace tolvex::console
