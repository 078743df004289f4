#include "platform/terminal.hpp"

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <termios.h>
#include <unistd.h>

namespace tolvex::terminal {

namespace {

// The terminal while a password is typed; who interrupts the program gets it back as it was.
class SilentTerminal
{
public:
    SilentTerminal() : descriptor_(open("/dev/tty", O_RDWR | O_CLOEXEC))
    {
        if (!is_there() || tcgetattr(descriptor_, &before_) != 0) return;
        silent_ = descriptor_;
        for (const int signal : interruptions) std::signal(signal, restore_and_end);
        termios silent = before_;
        silent.c_lflag &= ~static_cast<tcflag_t>(ECHO);
        tcsetattr(descriptor_, TCSAFLUSH, &silent);
    }
    ~SilentTerminal()
    {
        if (!is_there()) return;
        if (silent_ == descriptor_) restore();
        close(descriptor_);
    }
    SilentTerminal(const SilentTerminal&) = delete;

    bool is_there() const { return descriptor_ >= 0; }

    void show(const std::string& text) const
    {
        if (write(descriptor_, text.data(), text.size()) < 0) return; // the answer will be missing too
    }

    std::string line() const
    {
        std::string line;
        for (char letter = 0; read(descriptor_, &letter, 1) == 1 && letter != '\n';) line += letter;
        return line;
    }

private:
    static constexpr int interruptions[] = {SIGINT, SIGTERM, SIGHUP};

    static void restore()
    {
        tcsetattr(silent_, TCSAFLUSH, &before_);
        for (const int signal : interruptions) std::signal(signal, SIG_DFL);
        silent_ = -1;
    }

    static void restore_and_end(int signal)
    {
        restore();
        raise(signal);
    }

    int descriptor_;
    // For the handler of signals, which knows no object.
    inline static int silent_ = -1;
    inline static termios before_{};
};

volatile std::sig_atomic_t interrupted = 0;

void notice(int) { interrupted = 1; }

void notice_interruptions()
{
    struct sigaction action
    {};
    action.sa_handler = notice;
    action.sa_flags = static_cast<int>(SA_RESETHAND | SA_RESTART); // the second one ends the process
    for (const int signal : {SIGINT, SIGTERM}) sigaction(signal, &action, nullptr);
}

} // namespace

// Texts are UTF-8 here anyway, and programs share the terminal. Who stops reading what we print ends nothing
// half-way.
std::vector<std::string> take(int argc, char** argv)
{
    std::signal(SIGPIPE, SIG_IGN);
    return {argv + std::min(argc, 1), argv + argc};
}

void print(std::FILE* stream, const std::string& text) noexcept
{
    std::fwrite(text.data(), 1, text.size(), stream);
}

bool shows_errors() { return isatty(STDERR_FILENO) != 0; }

bool takes_answers() { return isatty(STDIN_FILENO) != 0; }

std::string input()
{
    std::string bytes;
    char buffer[65'536];
    while (const std::size_t count = std::fread(buffer, 1, sizeof buffer, stdin)) bytes.append(buffer, count);
    return bytes;
}

bool is_interrupted()
{
    static const bool is_noticing = (notice_interruptions(), true);
    return is_noticing && interrupted != 0;
}

void print_bytes() {}

std::optional<std::string> environment(const char* variable)
{
    const char* value = std::getenv(variable);
    return value ? std::optional<std::string>(value) : std::nullopt;
}

void forget_environment(const char* variable) { unsetenv(variable); }

std::optional<std::string> ask_for_password(const std::string& question)
{
    const SilentTerminal terminal;
    if (!terminal.is_there()) return {};
    terminal.show(question);
    const std::string password = terminal.line();
    terminal.show("\n");
    return password;
}

} // namespace tolvex::terminal
