#include "core/base64.hpp"

namespace tolvex {

namespace {

constexpr TextView alphabet = u"ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
constexpr TextView blanks = u" \t\r\n";

// Whether as many "=" stand at the end as so many digits need, which give whole bytes.
bool ends_well(std::size_t digits, std::size_t fillers)
{
    return digits % 4 == 0 ? fillers == 0 : digits % 4 != 1 && fillers == 4 - digits % 4;
}

} // namespace

std::optional<std::string> from_base64(TextView text)
{
    std::string bytes;
    bytes.reserve(text.size() / 4 * 3);
    std::size_t digits = 0, fillers = 0;
    unsigned bits = 0;
    for (const char16_t c : text) {
        if (blanks.find(c) != TextView::npos) continue;
        if (c == u'=') {
            ++fillers;
            continue;
        }
        const auto digit = alphabet.find(c);
        if (digit == TextView::npos || fillers > 0) return {};
        bits = bits << 6 | static_cast<unsigned>(digit);
        const std::size_t place = digits++ % 4;
        if (place > 0) bytes += static_cast<char>(bits >> (6 - 2 * place));
    }
    if (!ends_well(digits, fillers)) return {};
    return bytes;
}

Text to_base64(std::string_view bytes)
{
    Text text;
    for (std::size_t i = 0; i < bytes.size(); i += 3) {
        const auto byte = [&](std::size_t n) {
            return i + n < bytes.size() ? static_cast<unsigned char>(bytes[i + n]) : 0U;
        };
        const unsigned bits = byte(0) << 16 | byte(1) << 8 | byte(2);
        for (std::size_t n = 0; n < 4; ++n)
            text += i + n <= bytes.size() ? alphabet[bits >> (18 - 6 * n) & 63] : u'=';
    }
    return text;
}

} // namespace tolvex
