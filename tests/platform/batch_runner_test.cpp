#include "platform/batch_runner.hpp"

#include "support/files.hpp"
#include "support/tables.hpp"
#include "support/temporary_folder.hpp"

namespace tolvex::testing {
namespace {

class BatchRunner : public ::testing::Test
{
protected:
    int run(const std::string& lines)
    {
        write_file(folder_.path() / "orden.bat", lines);
        return run_batch_file(folder_.path().u16string() + u"\\ORDEN.BAT", WindowStyle::hidden);
    }

    TemporaryFolder folder_;
};

TEST_F(BatchRunner, runs_the_lines_in_order_with_their_words_and_redirections_and_is_no_shell)
{
    const std::string r = folder_.path();
    EXPECT_EQ(run("printf \"uno dos\"> " + r + "\\a.txt\r\n\r\nprintf %s%s x  \"\" >" + r + "\\b.txt\n" +
                  "printf $HOME;`id`|&*(x) > " + r + "\\c.txt\r\n"),
              0);
    EXPECT_EQ(read_file(folder_.path() / "a.txt"), "uno dos");
    EXPECT_EQ(read_file(folder_.path() / "b.txt"), "x");
    EXPECT_EQ(read_file(folder_.path() / "c.txt"), "$HOME;`id`|&*(x)");
}

TEST_F(BatchRunner, gives_the_last_exit_code_and_a_missing_program_stops_nothing)
{
    EXPECT_EQ(run("no_hay_tal_programa x\r\nfalse\r\n"), 1);
    EXPECT_EQ(run("false\r\ntrue"), 0);
    EXPECT_EQ(run("no_hay_tal_programa\r\n"), 127);
    EXPECT_EQ(run(" \t\r\n> x\r\n\"\"\r\n"), 127);
    ::testing::internal::CaptureStderr();
    EXPECT_NE(run("ls /no/hay/tal/carpeta\r\n"), 0);
    EXPECT_EQ(::testing::internal::GetCapturedStderr(), ""); // hidden
    EXPECT_EQ(run(""), 0);
    EXPECT_EQ(error_number([&] { run_batch_file(folder_.file("otra.bat")); }), 53);
}

} // namespace
} // namespace tolvex::testing
