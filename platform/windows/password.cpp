#include "platform/password.hpp"

#include "core/text.hpp"
#include "platform/windows/windows.hpp"

namespace tolvex {

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

} // namespace

std::optional<std::string> ask_for_password(const std::string& question)
{
    const Console input(L"CONIN$"), output(L"CONOUT$");
    if (!input.is_there() || !output.is_there()) return {};
    output.show(to_text(question));
    const Text password = unseen_line(input.get());
    output.show(u"\r\n");
    return to_utf8(password);
}

} // namespace tolvex
