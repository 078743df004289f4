#include "core/code_pages.hpp"

#include "core/errors.hpp"

namespace tolvex {

namespace {

// The characters of 0x80 to 0x9F; the five codes without one stay as control characters.
constexpr TextView windows_1252_upper_controls =
    u"\u20AC\u0081\u201A\u0192\u201E\u2026\u2020\u2021\u02C6\u2030\u0160\u2039\u0152\u008D\u017D\u008F"
    u"\u0090\u2018\u2019\u201C\u201D\u2022\u2013\u2014\u02DC\u2122\u0161\u203A\u0153\u009D\u017E\u0178";

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
