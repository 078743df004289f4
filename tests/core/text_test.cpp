#include "core/text.hpp"

#include "support/tables.hpp"

namespace tolvex {
namespace {

using testing::expect_all;

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

} // namespace
} // namespace tolvex
