#include "support/terminal.hpp"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <pty.h>
#include <sys/wait.h>
#include <unistd.h>

namespace tolvex::testing {

namespace {

constexpr unsigned longest_seconds = 60;

// Of the current test, those before the process was forked among them.
int failures()
{
    return ::testing::UnitTest::GetInstance()->current_test_info()->result()->total_part_count();
}

[[noreturn]] void run(const std::function<void()>& action)
{
    alarm(longest_seconds);
    const int failures_before = failures();
    try {
        action();
    } catch (const std::exception& error) {
        ADD_FAILURE() << error.what();
    }
    std::fflush(nullptr);
    _exit(failures() > failures_before ? 1 : 0);
}

bool succeeded(pid_t process)
{
    int status = 0;
    return waitpid(process, &status, 0) == process && WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

// Until the last process at the other end is gone.
std::string watch(int descriptor, const std::string& password, const std::string& question)
{
    std::string shown;
    std::size_t answered = 0;
    char buffer[1024];
    for (ssize_t count; (count = read(descriptor, buffer, sizeof buffer)) > 0;) {
        shown.append(buffer, static_cast<std::size_t>(count));
        const auto asked = shown.find(question, answered);
        if (asked == std::string::npos) continue;
        answered = asked + question.size();
        const std::string line = password + "\n";
        if (write(descriptor, line.data(), line.size()) < 0) break;
    }
    close(descriptor);
    return shown;
}

} // namespace

TerminalRun at_terminal(const std::string& password, const std::function<void()>& action,
                        const std::string& question)
{
    int terminal = 0;
    const pid_t process = forkpty(&terminal, nullptr, nullptr, nullptr);
    if (process == 0) run(action);
    const std::string shown = watch(terminal, password, question);
    return {succeeded(process), shown};
}

TerminalRun without_terminal(const std::function<void()>& action)
{
    int ends[2];
    if (pipe(ends) != 0) return {};
    const pid_t process = fork();
    if (process == 0) {
        setsid();
        dup2(open("/dev/null", O_RDONLY), STDIN_FILENO);
        dup2(ends[1], STDOUT_FILENO);
        dup2(ends[1], STDERR_FILENO);
        close(ends[0]);
        close(ends[1]);
        run(action);
    }
    close(ends[1]);
    const std::string shown = watch(ends[0], "", "assword:");
    return {succeeded(process), shown};
}

} // namespace tolvex::testing
