#include "platform/last_line.hpp"

#include "support/files.hpp"
#include "support/tables.hpp"
#include "support/temporary_folder.hpp"

namespace tolvex::testing {
namespace {

TEST(LastLine, ends_at_carriage_returns_but_not_at_bare_line_feeds)
{
    const TemporaryFolder folder;
    const auto last_line_of = [&](const std::string& bytes) {
        write_file(folder.path() / "sello.txt", bytes);
        return last_line(folder.file("sello.txt"));
    };
    expect_all<std::string, Text>(last_line_of, {{"", u""}, {"uno\ndos\n", u"uno\ndos\n"}, {"\xF1", u"ñ"}});
    expect_all<std::string, Text>(last_line_of,
                                  {{"uno\r\ndos\r\ntres\r\n", u"tres"}, {"uno\r\ndos", u"dos"}});
    expect_all<std::string, Text>(last_line_of,
                                  {{"uno\r\n\r\n", u""}, {"uno\n\rdos\n", u"dos\n"}, {"\r", u""}});
    EXPECT_EQ(error_number([&] { last_line(folder.file("otro.txt")); }), 53);
}

} // namespace
} // namespace tolvex::testing
