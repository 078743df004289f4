#include "core/text.hpp"

#include "support/tables.hpp"

namespace tolvex {
namespace {

using testing::error_number;
using testing::expect_all;

TEST(Text, utf8_is_read_and_written_exactly)
{
    for (const char* utf8 : {"", "A|B", "áÑü", "€ 5.00", "\U0001F600 fin", "fin \U0001F600"})
        EXPECT_EQ(to_utf8(to_text(utf8)), utf8);
    EXPECT_EQ(to_text("\U0001F600").size(), 2u);
}

TEST(Text, bytes_that_are_no_utf8_become_replacement_characters_and_tell_a_flat_file_in_windows_1252)
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
    EXPECT_EQ(from_windows_1252("\xF1 \x80 \x93x\x94 \x81"), u"ñ € “x” \u0081");
}

TEST(Text, trim_takes_blanks_only)
{
    expect_all<Text, Text>(trim, {{u"   ", u""}, {u" a b ", u"a b"}, {u"\ta\r", u"\ta\r"}});
}

TEST(Text, letter_case_covers_accented_latin_letters)
{
    EXPECT_EQ(upper_case(u"ñandú ÿ ÷ß"), u"ÑANDÚ Ÿ ÷ß");
    EXPECT_EQ(lower_case(u"ÑANDÚ Ÿ ×"), u"ñandú ÿ ×");
    EXPECT_TRUE(equal_ignoring_case(u"Ñandú", u"ñANDÚ"));
    EXPECT_FALSE(equal_ignoring_case(u"FE_Folios", u"fe_FOLIO"));
    EXPECT_FALSE(starts_with_ignoring_case(u"ña", u"ÑAN"));
}

TEST(Text, replacing_and_splitting)
{
    EXPECT_EQ(replace_all(u"aaa", u"aa", u"b"), u"ba");
    EXPECT_EQ(split(u"a||b|", u'|'), (std::vector<Text>{u"a", u"", u"b", u""}));
    EXPECT_EQ(split(u"", u'|'), std::vector<Text>{u""});
}

TEST(Text, bytes_and_characters_below_256_are_one_to_one)
{
    std::string every_byte;
    for (int byte = 0; byte < 256; ++byte) every_byte += static_cast<char>(byte);
    EXPECT_EQ(bytes_of_text(text_of_bytes(every_byte)), every_byte);
    EXPECT_EQ(error_number([] { bytes_of_text(u"€"); }), 5);
}

} // namespace
} // namespace tolvex
