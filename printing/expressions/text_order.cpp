#include "printing/expressions/text_order.hpp"

#include "core/text.hpp"

namespace tolvex::printing {

namespace {

char16_t lower(char16_t c)
{
    if (c >= u'A' && c <= u'Z') return c + 0x20;
    return c < 0x80 ? c : lower_case(TextView(&c, 1)).front();
}

// Doubled, so that the ñ finds its place between two letters.
int place_of(char16_t letter)
{
    static constexpr TextView bases = u"aaaaaaæceeeeiiiiðnooooo÷ouuuuyþy"; // of U+00E0 and what follows
    if (letter == u'ñ') return u'n' * 2 + 1;
    return (letter >= 0xE0 && letter <= 0xFF ? bases[letter - 0xE0] : letter) * 2;
}

} // namespace

int compare_letters(TextView a, TextView b)
{
    int by_accent = 0;
    for (std::size_t i = 0; i < a.size() && i < b.size(); ++i) {
        const char16_t x = lower(a[i]), y = lower(b[i]);
        if (x == y) continue;
        if (const int difference = place_of(x) - place_of(y)) return difference < 0 ? -1 : 1;
        if (by_accent == 0) by_accent = x < y ? -1 : 1;
    }
    if (a.size() != b.size()) return a.size() < b.size() ? -1 : 1;
    return by_accent;
}

} // namespace tolvex::printing
