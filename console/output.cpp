#include "console/output.hpp"

#include "core/errors.hpp"
#include "platform/terminal.hpp"

namespace tolvex::console {

void print_line(const Text& text) { print_line(to_utf8(text)); }

// At once: who reads must know what is done even if the program is killed.
void print_line(const std::string& text)
{
    terminal::print(stdout, text + "\n");
    std::fflush(stdout);
}

void say_error(const std::string& reason) noexcept { terminal::print(stderr, "tolvex: " + reason + "\n"); }

void say_warning(const Text& warning) noexcept { say_error("aviso: " + to_utf8(warning)); }

int fail(const Text& reason)
{
    say_error(to_utf8(reason));
    return 1;
}

int fail(const std::exception& error) { return fail(words_of(error)); }

bool is_heard() { return std::ferror(stdout) == 0; }

bool all_written_out()
{
    if (std::fflush(stdout) == 0 && !std::ferror(stdout)) return true;
    say_error("no se pudo escribir el resultado en la salida estándar");
    return false;
}

} // namespace tolvex::console
