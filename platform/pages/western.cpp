#include "platform/pages/western.hpp"

#include "core/code_pages.hpp"

#include <algorithm>

namespace tolvex::pages {

namespace {

struct Western
{
    Text characters;
    std::vector<unsigned char> bytes =
        std::vector<unsigned char>(0x2200); // by character, trade mark is the last

    Western()
    {
        for (int byte = ' '; byte <= 0xFF; ++byte) {
            const char16_t c = from_windows_1252(std::string(1, static_cast<char>(byte))).front();
            if (c >= 0x7F && c < 0xA0) continue; // control characters
            bytes[c] = static_cast<unsigned char>(byte);
            characters += c;
        }
        std::sort(characters.begin(), characters.end());
    }
};

const Western& western()
{
    static const Western the_code_page;
    return the_code_page;
}

} // namespace

const Text& western_characters() { return western().characters; }

unsigned char western_byte(char16_t c) { return c < western().bytes.size() ? western().bytes[c] : 0; }

} // namespace tolvex::pages
