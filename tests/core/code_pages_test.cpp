#include "core/code_pages.hpp"

#include "support/tables.hpp"

namespace tolvex {
namespace {

using testing::error_number;

TEST(CodePages, bytes_and_characters_below_256_are_one_to_one)
{
    std::string every_byte;
    for (int byte = 0; byte < 256; ++byte) every_byte += static_cast<char>(byte);
    EXPECT_EQ(bytes_of_text(text_of_bytes(every_byte)), every_byte);
    EXPECT_EQ(error_number([] { bytes_of_text(u"€"); }), numbers::invalid_call);
}

TEST(CodePages, windows_1252_is_read_and_written)
{
    for (const auto& [bytes, text] : {std::pair{"", u""},
                                      {"A\xF1O\r\n\x7F", u"AñO\r\n\x7F"},
                                      {"\xA0\xFF", u"\u00A0ÿ"},
                                      {"\x80 \x93x\x94 \x9F", u"€ “x” Ÿ"},
                                      {"\x81\x8D\x8F\x90\x9D", u"\u0081\u008D\u008F\u0090\u009D"}}) {
        EXPECT_EQ(from_windows_1252(bytes), text);
        EXPECT_EQ(to_windows_1252(text), bytes);
    }
    EXPECT_EQ(to_windows_1252(Text(1, u'\0')), std::string(1, '\0'));
}

TEST(CodePages, what_windows_1252_lacks_is_refused_by_its_name)
{
    for (const Text lacking : {u"ř", u"\u0080", u"\uFF21", u"\U0001F600"}) {
        try {
            to_windows_1252(u"José " + lacking + u" Peña");
            ADD_FAILURE() << to_utf8(lacking) << " was written";
        } catch (const Error& error) {
            EXPECT_EQ(error.number(), numbers::invalid_call);
            EXPECT_NE(error.description().find(u"«" + lacking + u"»"), Text::npos) << error.what();
        }
    }
}

} // namespace
} // namespace tolvex
