#include "platform/batch_runner.hpp"

#include "support/files.hpp"
#include "support/tables.hpp"
#include "support/temporary_folder.hpp"
#include "support/terminal.hpp"

#include <cstdlib>

namespace tolvex::testing {
namespace {

class BatchRunner : public ::testing::Test
{
protected:
    int run(const std::string& lines, WindowStyle style = WindowStyle::hidden)
    {
        write_file(folder_.path() / "orden.bat", lines);
        return run_batch_file(folder_.path().u16string() + u"\\ORDEN.BAT", style);
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

TEST_F(BatchRunner, programs_write_for_the_user_alone_and_do_not_learn_the_databases_password)
{
    using std::filesystem::perms;
    const std::string r = folder_.path();
    const auto mode_of = [&](const char* name) {
        return std::filesystem::status(r + "/" + name).permissions();
    };
    write_file(r + "/antes.txt", "");
    setenv("TOLVEX_CLAVE", "secreta", 1);
    setenv("TOLVEX_CLAVES", "otra", 1);
    EXPECT_EQ(run("touch " + r + "\\llave.pem\r\nprintenv TOLVEX_CLAVES > " + r + "\\otra.txt\r\n" +
                  "printenv TOLVEX_CLAVE > " + r + "\\clave.txt\r\n"),
              1);
    EXPECT_STREQ(std::getenv("TOLVEX_CLAVE"), "secreta") << "the host keeps it";
    unsetenv("TOLVEX_CLAVE");
    unsetenv("TOLVEX_CLAVES");
    EXPECT_EQ(read_file(r + "/clave.txt"), "");
    EXPECT_EQ(read_file(r + "/otra.txt"), "otra\n");
    write_file(r + "/despues.txt", "");
    for (const char* name : {"llave.pem", "clave.txt"})
        EXPECT_EQ(mode_of(name), perms::owner_read | perms::owner_write) << name;
    EXPECT_EQ(mode_of("despues.txt"), mode_of("antes.txt")) << "the host's own files are made as before";
}

// Instead of a terminal's window there is a program that says what it was to run.
TEST_F(BatchRunner, a_program_that_must_be_seen_gets_a_window_where_its_process_has_no_terminal)
{
    const std::string r = folder_.path();
    write_file(r + "/xterm", "#!/bin/sh\nprintf '%s ' \"$@\" > " + r + "/window.txt\nshift\nexec \"$@\"\n");
    std::filesystem::permissions(r + "/xterm", std::filesystem::perms::owner_all);
    const auto window_for = [&](WindowStyle style, bool has_screen) {
        std::filesystem::remove(r + "/window.txt");
        const TerminalRun seen = without_terminal([&] {
            setenv("PATH", (r + ":" + std::getenv("PATH")).c_str(), 1);
            has_screen ? setenv("DISPLAY", ":1", 1) : unsetenv("DISPLAY");
            EXPECT_EQ(run("false\r\ntouch " + r + "\\hecho.txt\r\n", style), 0);
        });
        EXPECT_TRUE(seen.all_checks_passed) << seen.shown;
        EXPECT_TRUE(std::filesystem::remove(r + "/hecho.txt"));
        return std::filesystem::exists(r + "/window.txt") ? read_file(r + "/window.txt") : "";
    };
    EXPECT_EQ(window_for(WindowStyle::visible, true), "-e touch " + r + "/hecho.txt ");
    EXPECT_EQ(window_for(WindowStyle::visible, false), "");
    EXPECT_EQ(window_for(WindowStyle::unset, true), "");
    EXPECT_EQ(window_for(WindowStyle::hidden, true), "");
    const TerminalRun at_one = at_terminal("", [&] {
        setenv("DISPLAY", ":1", 1);
        setenv("PATH", (r + ":" + std::getenv("PATH")).c_str(), 1);
        run("printf visto\r\n", WindowStyle::visible);
    });
    EXPECT_NE(at_one.shown.find("visto"), std::string::npos);
    EXPECT_FALSE(std::filesystem::exists(r + "/window.txt"));
}

} // namespace
} // namespace tolvex::testing
