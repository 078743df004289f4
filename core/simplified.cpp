#include "core/simplified.hpp"

namespace tolvex {

namespace {

// Lower-case letters from U+00E0 and U+0100 on without their accents.
constexpr TextView western_letters = u"aaaaaaæceeeeiiiiðnooooo÷ouuuuyþy",
                   european_letters =
                       u"aaaaaaccccccccddddeeeeeeeeeegggggggghhhhiiiiiiiiiiĳĳjjkkĸllllllllllnnnnnnŉ"
                       u"ŋŋooooooœœrrrrrrssssssssttttttuuuuuuuuuuuuwwyyyzzzzzzs";

char16_t without_accent(char16_t c)
{
    if (c >= 0x00E0 && c < 0x00E0 + western_letters.size()) return western_letters[c - 0x00E0u];
    if (c >= 0x0100 && c < 0x0100 + european_letters.size()) return european_letters[c - 0x0100u];
    return c;
}

} // namespace

Text simplified(TextView text)
{
    Text simple = lower_case(text);
    for (char16_t& c : simple) c = without_accent(c);
    return simple;
}

} // namespace tolvex
