#include "core/text.hpp"

#include "core/errors.hpp"

#include <algorithm>

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

// Beyond U+FFFF a character takes two units.
Text character_at(TextView text, std::size_t i)
{
    return Text(text.substr(i, is_high_surrogate(text[i]) ? 2 : 1));
}

// The characters of 0x80 to 0x9F; the five codes without one stay as control characters.
constexpr TextView windows_1252_upper_controls =
    u"\u20AC\u0081\u201A\u0192\u201E\u2026\u2020\u2021\u02C6\u2030\u0160\u2039\u0152\u008D\u017D\u008F"
    u"\u0090\u2018\u2019\u201C\u201D\u2022\u2013\u2014\u02DC\u2122\u0161\u203A\u0153\u009D\u017E\u0178";

bool is_upper_control(char16_t c) { return c >= 0x80 && c < 0xA0; }

char16_t to_upper(char16_t c)
{
    if ((c >= u'a' && c <= u'z') || (c >= 0xE0 && c <= 0xFE && c != 0xF7)) return c - 0x20;
    return c == 0xFF ? u'\u0178' : c;
}

char16_t to_lower(char16_t c)
{
    if ((c >= u'A' && c <= u'Z') || (c >= 0xC0 && c <= 0xDE && c != 0xD7)) return c + 0x20;
    return c == 0x0178 ? u'\u00FF' : c;
}

template <class Change>
Text each_changed(TextView text, Change change)
{
    Text changed(text);
    std::transform(changed.begin(), changed.end(), changed.begin(), change);
    return changed;
}

template <class Wanted>
Text filtered(TextView text, Wanted wanted)
{
    Text kept;
    kept.reserve(text.size());
    std::copy_if(text.begin(), text.end(), std::back_inserter(kept), wanted);
    return kept;
}

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

Text trim_right(TextView text)
{
    const auto last = text.find_last_not_of(u' ');
    return last == TextView::npos ? Text() : Text(text.substr(0, last + 1));
}

Text trim(TextView text)
{
    const auto first = text.find_first_not_of(u' ');
    return first == TextView::npos ? Text() : trim_right(text.substr(first));
}

Text upper_case(TextView text) { return each_changed(text, to_upper); }

Text lower_case(TextView text) { return each_changed(text, to_lower); }

bool equal_ignoring_case(TextView a, TextView b)
{
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](char16_t x, char16_t y) { return to_upper(x) == to_upper(y); });
}

bool starts_with_ignoring_case(TextView text, TextView prefix)
{
    return equal_ignoring_case(text.substr(0, prefix.size()), prefix);
}

Text clip(TextView text, std::size_t n) { return Text(text.substr(0, n)); }

Text replace_all(TextView text, TextView what, TextView with)
{
    Text replaced;
    for (;;) {
        const auto found = text.find(what);
        replaced += text.substr(0, found);
        if (found == TextView::npos) return replaced;
        replaced += with;
        text.remove_prefix(found + what.size());
    }
}

Text without(TextView text, char16_t unwanted)
{
    return filtered(text, [=](char16_t c) { return c != unwanted; });
}

Text keep_only(TextView text, TextView allowed)
{
    return filtered(text, [=](char16_t c) { return allowed.find(c) != TextView::npos; });
}

std::vector<Text> split(TextView text, char16_t separator)
{
    std::vector<Text> fields;
    for (;;) {
        const auto found = text.find(separator);
        fields.emplace_back(text.substr(0, found));
        if (found == TextView::npos) return fields;
        text.remove_prefix(found + 1);
    }
}

Text join(const std::vector<Text>& parts, TextView separator)
{
    Text whole;
    for (std::size_t i = 0; i < parts.size(); ++i) {
        if (i > 0) whole += separator;
        whole += parts[i];
    }
    return whole;
}

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
    for (const char16_t c : text) {
        if (c > 0xFF) throw invalid_call();
        bytes += static_cast<char>(c);
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
        const auto place = windows_1252_upper_controls.find(text[i]);
        if (text[i] <= 0xFF && !is_upper_control(text[i]))
            bytes += static_cast<char>(text[i]);
        else if (place != TextView::npos)
            bytes += static_cast<char>(0x80 + place);
        else
            throw invalid_call(u"El carácter «" + character_at(text, i) +
                               u"» no existe en la página de códigos 1252 de Windows");
    }
    return bytes;
}

bool is_valid_utf8(std::string_view bytes)
{
    char32_t c = 0;
    for (std::size_t position = 0; position < bytes.size();)
        if (!next_code_point(bytes, position, c)) return false;
    return true;
}

} // namespace tolvex
