#include "platform/terminal.hpp"

#include "core/text.hpp"
#include "platform/windows/batch_programs.hpp"
#include "platform/windows/windows.hpp"

#include <shellapi.h>

#ifndef ENABLE_VIRTUAL_TERMINAL_PROCESSING
#define ENABLE_VIRTUAL_TERMINAL_PROCESSING 4 // newer than the oldest Windows that we speak of
#endif

#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <io.h>

namespace tolvex::terminal {

namespace {

// The console's input and output, whatever the program's own were redirected to.
class Console
{
public:
    explicit Console(const wchar_t* name)
        : handle_(CreateFileW(name, GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                              OPEN_EXISTING, 0, nullptr))
    {}
    ~Console()
    {
        if (is_there()) CloseHandle(handle_);
    }
    Console(const Console&) = delete;

    bool is_there() const { return handle_ != INVALID_HANDLE_VALUE; }
    HANDLE get() const { return handle_; }

    void show(const Text& text) const
    {
        WriteConsoleW(handle_, wide(text), static_cast<DWORD>(text.size()), nullptr, nullptr);
    }

private:
    const HANDLE handle_;
};

Text unseen_line(HANDLE input)
{
    DWORD mode = 0, count = 0;
    GetConsoleMode(input, &mode);
    SetConsoleMode(input, mode & ~static_cast<DWORD>(ENABLE_ECHO_INPUT));
    Text line(1024, u'\0');
    ReadConsoleW(input, wide(line), static_cast<DWORD>(line.size()), &count, nullptr);
    SetConsoleMode(input, mode);
    line.resize(count);
    return line.substr(0, line.find_first_of(u"\r\n"));
}

std::atomic<bool> interrupted = false;

BOOL WINAPI notice(DWORD) { return !interrupted.exchange(true); }

UINT code_page_before = 0;

void give_code_page_back() { SetConsoleOutputCP(code_page_before); }

bool is_terminal(DWORD file)
{
    DWORD mode = 0;
    return GetConsoleMode(GetStdHandle(file), &mode) != 0;
}

} // namespace

std::vector<std::string> take(int, char**)
{
    code_page_before = GetConsoleOutputCP();
    if (code_page_before != 0 && SetConsoleOutputCP(CP_UTF8)) std::atexit(give_code_page_back);
    run_programs_in_console();
    static const ComponentsInUse for_good;
    int count = 0;
    wchar_t** words = CommandLineToArgvW(GetCommandLineW(), &count);
    std::vector<std::string> given;
    for (int i = 1; i < count; ++i) given.push_back(to_utf8(from_wide(words[i])));
    LocalFree(words);
    return given;
}

// Old consoles take no UTF-8, and those that do no letter in two pieces.
void print(std::FILE* stream, const std::string& text) noexcept
try {
    const auto console = reinterpret_cast<HANDLE>(_get_osfhandle(_fileno(stream)));
    DWORD mode = 0;
    if (!GetConsoleMode(console, &mode)) {
        std::fwrite(text.data(), 1, text.size(), stream);
        return;
    }
    std::fflush(stream);
    constexpr std::size_t most_at_once = 8192;
    const Text letters = to_text(text);
    for (std::size_t i = 0; i < letters.size(); i += most_at_once) {
        const Text piece = letters.substr(i, most_at_once);
        WriteConsoleW(console, wide(piece), static_cast<DWORD>(piece.size()), nullptr, nullptr);
    }
} catch (...) {
    std::fputs("?", stream); // without memory the words are lost
}

// One that takes a line back, which old consoles do not.
bool shows_errors()
{
    DWORD mode = 0;
    const HANDLE errors = GetStdHandle(STD_ERROR_HANDLE);
    return GetConsoleMode(errors, &mode) && SetConsoleMode(errors, mode | ENABLE_VIRTUAL_TERMINAL_PROCESSING);
}

bool takes_answers() { return is_terminal(STD_INPUT_HANDLE); }

std::string input()
{
    _setmode(_fileno(stdin), _O_BINARY);
    std::string bytes;
    char buffer[65'536];
    while (const std::size_t count = std::fread(buffer, 1, sizeof buffer, stdin)) bytes.append(buffer, count);
    return bytes;
}

bool is_interrupted()
{
    static const bool is_noticing = SetConsoleCtrlHandler(notice, TRUE) != 0;
    return is_noticing && interrupted;
}

void print_bytes() { _setmode(_fileno(stdout), _O_BINARY); }

std::optional<std::string> environment(const char* variable)
{
    const Text name = to_text(variable);
    const DWORD size = GetEnvironmentVariableW(wide(name), nullptr, 0);
    if (size == 0) return {};
    Text value(size, u'\0');
    value.resize(GetEnvironmentVariableW(wide(name), wide(value), size));
    return to_utf8(value);
}

void forget_environment(const char* variable) { SetEnvironmentVariableW(wide(to_text(variable)), nullptr); }

std::optional<std::string> ask_for_password(const std::string& question)
{
    const Console input(L"CONIN$"), output(L"CONOUT$");
    if (!input.is_there() || !output.is_there()) return {};
    output.show(to_text(question));
    const Text password = unseen_line(input.get());
    output.show(u"\r\n");
    return to_utf8(password);
}

} // namespace tolvex::terminal
