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
    EXPECT_EQ(error_number([] { bytes_of_text(u"€"); }), 5);
}

TEST(CodePages, windows_1252_is_read)
{
    for (const auto& [bytes, text] : {std::pair{"", u""},
                                      {"A\xF1O\r\n\x7F", u"AñO\r\n\x7F"},
                                      {"\xA0\xFF", u"\u00A0ÿ"},
                                      {"\x80 \x93x\x94 \x9F", u"€ “x” Ÿ"},
                                      {"\x81\x8D\x8F\x90\x9D", u"\u0081\u008D\u008F\u0090\u009D"}})
        EXPECT_EQ(from_windows_1252(bytes), text);
}

} // namespace
} // namespace tolvex
