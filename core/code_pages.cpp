#include "core/code_pages.hpp"

#include "core/errors.hpp"

namespace tolvex {

namespace {

// The characters of 0x80 to 0x9F; the five codes without one stay as control characters.
constexpr TextView windows_1252_upper_controls =
    u"\u20AC\u0081\u201A\u0192\u201E\u2026\u2020\u2021\u02C6\u2030\u0160\u2039\u0152\u008D\u017D\u008F"
    u"\u0090\u2018\u2019\u201C\u201D\u2022\u2013\u2014\u02DC\u2122\u0161\u203A\u0153\u009D\u017E\u0178";

constexpr TextView code_page_850_upper_half =
    u"\u00C7\u00FC\u00E9\u00E2\u00E4\u00E0\u00E5\u00E7\u00EA\u00EB\u00E8\u00EF\u00EE\u00EC\u00C4\u00C5"
    u"\u00C9\u00E6\u00C6\u00F4\u00F6\u00F2\u00FB\u00F9\u00FF\u00D6\u00DC\u00F8\u00A3\u00D8\u00D7\u0192"
    u"\u00E1\u00ED\u00F3\u00FA\u00F1\u00D1\u00AA\u00BA\u00BF\u00AE\u00AC\u00BD\u00BC\u00A1\u00AB\u00BB"
    u"\u2591\u2592\u2593\u2502\u2524\u00C1\u00C2\u00C0\u00A9\u2563\u2551\u2557\u255D\u00A2\u00A5\u2510"
    u"\u2514\u2534\u252C\u251C\u2500\u253C\u00E3\u00C3\u255A\u2554\u2569\u2566\u2560\u2550\u256C\u00A4"
    u"\u00F0\u00D0\u00CA\u00CB\u00C8\u0131\u00CD\u00CE\u00CF\u2518\u250C\u2588\u2584\u00A6\u00CC\u2580"
    u"\u00D3\u00DF\u00D4\u00D2\u00F5\u00D5\u00B5\u00FE\u00DE\u00DA\u00DB\u00D9\u00FD\u00DD\u00AF\u00B4"
    u"\u00AD\u00B1\u2017\u00BE\u00B6\u00A7\u00F7\u00B8\u00B0\u00A8\u00B7\u00B9\u00B3\u00B2\u25A0\u00A0";

bool is_upper_control(char16_t c) { return c >= 0x80 && c < 0xA0; }

// Beyond U+FFFF a character takes two units.
Text character_at(TextView text, std::size_t i)
{
    const bool takes_two = text[i] >= 0xD800 && text[i] < 0xDC00;
    return Text(text.substr(i, takes_two ? 2 : 1));
}

} // namespace

Text text_of_bytes(std::string_view bytes)
{
    Text text;
    text.reserve(bytes.size());
    for (const char byte : bytes) text += static_cast<unsigned char>(byte);
    return text;
}

std::string bytes_of_text(TextView text)
{
    std::string bytes;
    bytes.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] > 0xFF)
            throw invalid_call(u"El carácter «" + character_at(text, i) + u"» no cabe en un byte");
        bytes += static_cast<char>(text[i]);
    }
    return bytes;
}

Text from_windows_1252(std::string_view bytes)
{
    Text text = text_of_bytes(bytes);
    for (char16_t& c : text)
        if (is_upper_control(c)) c = windows_1252_upper_controls[c - 0x80];
    return text;
}

Text from_code_page_850(std::string_view bytes)
{
    Text text = text_of_bytes(bytes);
    for (char16_t& c : text)
        if (c >= 0x80) c = code_page_850_upper_half[c - 0x80];
    return text;
}

std::string to_windows_1252(TextView text)
{
    std::string bytes;
    bytes.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char16_t c = text[i];
        const auto place = windows_1252_upper_controls.find(c);
        if (c <= 0xFF && !is_upper_control(c))
            bytes += static_cast<char>(c);
        else if (place != TextView::npos)
            bytes += static_cast<char>(0x80 + place);
        else
            throw invalid_call(u"El carácter «" + character_at(text, i) +
                               u"» no existe en la página de códigos 1252 de Windows");
    }
    return bytes;
}

} // namespace tolvex
