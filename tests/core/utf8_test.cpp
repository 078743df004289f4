#include "core/utf8.hpp"

#include "support/tables.hpp"

namespace tolvex {
namespace {

TEST(Utf8, is_read_and_written_exactly)
{
    for (const char* utf8 : {"", "A|B", "áÑü", "€ 5.00", "\U0001F600 fin", "fin \U0001F600"})
        EXPECT_EQ(to_utf8(to_text(utf8)), utf8);
    EXPECT_EQ(to_text("\U0001F600").size(), 2u);
}

TEST(Utf8, bytes_that_are_none_become_replacement_characters)
{
    EXPECT_TRUE(is_valid_utf8("Peña"));
    for (const auto& [bytes, text] : {std::pair{"\xF1", u"\uFFFD"},
                                      {"a\xC3", u"a\uFFFD"},
                                      {"\xC0\xAF", u"\uFFFD\uFFFD"},                        // overlong
                                      {"\xE0\x80\xAF", u"\uFFFD\uFFFD\uFFFD"},              // overlong
                                      {"\xED\xA0\x80", u"\uFFFD\uFFFD\uFFFD"},              // surrogate
                                      {"\xF4\x90\x80\x80", u"\uFFFD\uFFFD\uFFFD\uFFFD"}}) { // past U+10FFFF
        EXPECT_EQ(to_text(bytes), text);
        EXPECT_FALSE(is_valid_utf8(bytes));
    }
    EXPECT_EQ(to_utf8(Text{char16_t{0xDC00}, char16_t{0xD800}}), "\xEF\xBF\xBD\xEF\xBF\xBD");
    EXPECT_EQ(to_utf8(TextView(u"a\U0001F600").substr(0, 2)), "a\xEF\xBF\xBD"); // cut inside a pair
}

} // namespace
} // namespace tolvex
