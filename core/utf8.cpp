#include "core/utf8.hpp"

namespace tolvex {

namespace {

constexpr char32_t replacement = 0xFFFD;

void append_code_point(Text& text, char32_t c)
{
    if (c < 0x10000) {
        text += static_cast<char16_t>(c);
    } else {
        text += static_cast<char16_t>(0xD7C0 + (c >> 10));
        text += static_cast<char16_t>(0xDC00 + (c & 0x3FF));
    }
}

void append_utf8(std::string& bytes, char32_t c)
{
    if (c < 0x80) {
        bytes += static_cast<char>(c);
        return;
    }
    const int continuation = c < 0x800 ? 1 : c < 0x10000 ? 2 : 3;
    constexpr unsigned char lead[] = {0, 0xC0, 0xE0, 0xF0};
    bytes += static_cast<char>(lead[continuation] | (c >> (6 * continuation)));
    for (int i = continuation - 1; i >= 0; --i) bytes += static_cast<char>(0x80 | ((c >> (6 * i)) & 0x3F));
}

// How many bytes follow a lead byte; 0 when it is none.
int continuation_bytes(unsigned char lead)
{
    if (lead >= 0xC2 && lead < 0xE0) return 1;
    if (lead >= 0xE0 && lead < 0xF0) return 2;
    if (lead >= 0xF0 && lead < 0xF5) return 3;
    return 0;
}

// Code point at the position, which moves past it; false (and one byte further) when the bytes are no UTF-8.
bool next_code_point(std::string_view bytes, std::size_t& position, char32_t& c)
{
    const auto at = [&](std::size_t i) { return static_cast<unsigned char>(bytes[i]); };
    const unsigned char lead = at(position++);
    if (lead < 0x80) {
        c = lead;
        return true;
    }
    const int continuation = continuation_bytes(lead);
    if (continuation == 0 || position + continuation > bytes.size()) return false;
    c = lead & (0x3F >> continuation);
    for (int i = 0; i < continuation; ++i) {
        if ((at(position + i) & 0xC0) != 0x80) return false;
        c = (c << 6) | (at(position + i) & 0x3F);
    }
    constexpr char32_t smallest[] = {0, 0x80, 0x800, 0x10000};
    if (c < smallest[continuation] || c > 0x10FFFF || (c >= 0xD800 && c < 0xE000)) return false;
    position += continuation;
    return true;
}

bool is_high_surrogate(char16_t c) { return c >= 0xD800 && c < 0xDC00; }
bool is_low_surrogate(char16_t c) { return c >= 0xDC00 && c < 0xE000; }

} // namespace

Text to_text(std::string_view utf8)
{
    Text text;
    text.reserve(utf8.size());
    for (std::size_t position = 0; position < utf8.size();) {
        char32_t c = 0;
        append_code_point(text, next_code_point(utf8, position, c) ? c : replacement);
    }
    return text;
}

std::string to_utf8(TextView text)
{
    std::string bytes;
    bytes.reserve(text.size() + text.size() / 8);
    for (std::size_t i = 0; i < text.size(); ++i) {
        char32_t c = text[i];
        if (is_high_surrogate(text[i]) && i + 1 < text.size() && is_low_surrogate(text[i + 1]))
            c = 0x10000 + ((c - 0xD800) << 10) + (text[++i] - 0xDC00);
        else if (is_high_surrogate(text[i]) || is_low_surrogate(text[i]))
            c = replacement;
        append_utf8(bytes, c);
    }
    return bytes;
}

std::size_t utf8_length(std::string_view bytes)
{
    std::size_t position = 0;
    char32_t c = 0;
    return !bytes.empty() && next_code_point(bytes, position, c) ? position : 0;
}

bool is_valid_utf8(std::string_view bytes)
{
    char32_t c = 0;
    for (std::size_t position = 0; position < bytes.size();)
        if (!next_code_point(bytes, position, c)) return false;
    return true;
}

} // namespace tolvex
