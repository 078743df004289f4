#include "core/base64.hpp"

#include "support/tables.hpp"

namespace tolvex {
namespace {

using testing::expect_all;

TEST(Base64, whole_texts_become_bytes_and_others_nothing)
{
    expect_all<Text, std::optional<std::string>>(from_base64, {{u"", ""},
                                                               {u"aG9sYQ==", "hola"},
                                                               {u" aG9s\r\n\tYSE= ", "hola!"},
                                                               {u"/+8A", std::string("\xFF\xEF\0", 3)},
                                                               {u"aG9sYQ", {}},
                                                               {u"aG9sYQ=", {}},
                                                               {u"aG9sY===", {}},
                                                               {u"aG9s====", {}},
                                                               {u"aG=sYQ==", {}},
                                                               {u"aG9sñQ==", {}}});
}

TEST(Base64, bytes_become_whole_texts)
{
    expect_all<std::string, Text>(to_base64, {{"", u""},
                                              {"h", u"aA=="},
                                              {"ho", u"aG8="},
                                              {"hol", u"aG9s"},
                                              {"hola!", u"aG9sYSE="},
                                              {std::string("\xFF\xEF\0", 3), u"/+8A"}});
}

} // namespace
} // namespace tolvex
