#include "platform/windows/batch_programs.hpp"

#include "core/errors.hpp"
#include "platform/files.hpp"
#include "platform/given_answers.hpp"
#include "platform/windows/windows.hpp"

namespace tolvex {

namespace {

constexpr int command_not_found = 9009;

bool in_console = false;

// An open file or an end of a pipe.
class File
{
public:
    File() = default;
    explicit File(HANDLE handle) : handle_(handle) {}
    File(File&& other) noexcept : handle_(std::exchange(other.handle_, INVALID_HANDLE_VALUE)) {}
    File& operator=(File&& other) noexcept { return std::swap(handle_, other.handle_), *this; }
    ~File()
    {
        if (handle_ != INVALID_HANDLE_VALUE) CloseHandle(handle_);
    }

    HANDLE get() const { return handle_; }

private:
    HANDLE handle_ = INVALID_HANDLE_VALUE;
};

SECURITY_ATTRIBUTES inheritable() { return {sizeof(SECURITY_ATTRIBUTES), nullptr, TRUE}; }

File opened(const Text& path, DWORD access, DWORD disposition)
{
    SECURITY_ATTRIBUTES attributes = inheritable();
    File file(CreateFileW(wide(path), access, FILE_SHARE_READ | FILE_SHARE_WRITE, &attributes, disposition,
                          FILE_ATTRIBUTE_NORMAL, nullptr));
    if (file.get() == INVALID_HANDLE_VALUE) throw path_error(path, system_message(GetLastError()));
    return file;
}

File nothing() { return opened(u"NUL", GENERIC_READ | GENERIC_WRITE, OPEN_EXISTING); }

// What is written is in the pipe at once: answers are short.
File with_answers(const std::string& lines)
{
    HANDLE output = nullptr, input = nullptr;
    const auto size = static_cast<DWORD>(lines.size());
    if (!CreatePipe(&output, &input, nullptr, size + 1))
        throw invalid_call(u"no se pudo contestar al programa: " + system_message(GetLastError()));
    File answers(output);
    const File to_write(input);
    DWORD written = 0;
    WriteFile(input, lines.data(), size, &written, nullptr);
    SetHandleInformation(output, HANDLE_FLAG_INHERIT, HANDLE_FLAG_INHERIT);
    return answers;
}

// Ours, for a program to inherit.
File own(DWORD standard)
{
    HANDLE copy = INVALID_HANDLE_VALUE;
    const HANDLE process = GetCurrentProcess();
    DuplicateHandle(process, GetStdHandle(standard), process, &copy, 0, TRUE, DUPLICATE_SAME_ACCESS);
    return File(copy);
}

// As programs take their command line apart again; batch lines hold no quotes within words.
Text in_quotes(const Text& word)
{
    return word.empty() || word.find_first_of(u" \t") != Text::npos ? u"\"" + word + u"\"" : word;
}

// A program that asks gets its answers where they come from; no other may take what is typed or piped to us,
// and an interruption of ours does not reach it.
struct Start
{
    File input, output, errors;
    DWORD flags = CREATE_NEW_PROCESS_GROUP;
};

Start start_of(const BatchCommand& command, WindowStyle style)
{
    Start start{own(STD_INPUT_HANDLE), own(STD_OUTPUT_HANDLE), own(STD_ERROR_HANDLE)};
    const std::string* answers = GivenAnswers::current();
    DWORD mode = 0;
    if (style == WindowStyle::hidden) {
        start = {nothing(), nothing(), nothing(), DETACHED_PROCESS};
    } else if (style == WindowStyle::visible && answers) {
        start = {with_answers(*answers), nothing(), nothing(), DETACHED_PROCESS};
    } else if (style == WindowStyle::visible) {
        // With a console it would not look at its standard input, which somebody has given.
        const bool typed = GetConsoleMode(GetStdHandle(STD_INPUT_HANDLE), &mode) != 0;
        start.flags = typed ? 0 : DETACHED_PROCESS;
    }
    if (!command.output.empty())
        start.output = opened(files::native_path(command.output), GENERIC_WRITE, CREATE_ALWAYS);
    return start;
}

} // namespace

void run_programs_in_console() { in_console = true; }

bool programs_run_in_console() { return in_console; }

Text program_of(const Text& given)
{
    const Text wanted = files::native_path(given);
    if (files::exists(wanted)) return wanted;
    if (files::exists(wanted + u".exe")) return wanted + u".exe";
    const Text name = wanted.substr(wanted.find_last_of(u'\\') + 1);
    const Text beside = files::program_folder() + u"\\" + name + u".exe";
    if (files::exists(beside)) return beside;
    Text path(32'768, u'\0'), found(MAX_PATH, u'\0');
    path.resize(GetEnvironmentVariableW(L"PATH", wide(path), static_cast<DWORD>(path.size())));
    const DWORD length = SearchPathW(wide(path), wide(name), L".exe", MAX_PATH, wide(found), nullptr);
    found.resize(length < MAX_PATH ? length : 0);
    return found;
}

int run_in_console(const BatchCommand& command, WindowStyle style)
{
    const Text program = program_of(command.words.front());
    if (program.empty()) return command_not_found;
    Text line = in_quotes(program);
    for (std::size_t i = 1; i < command.words.size(); ++i) line += u" " + in_quotes(command.words[i]);

    const Start start = start_of(command, style);
    STARTUPINFOW window{};
    window.cb = sizeof window;
    window.dwFlags = STARTF_USESTDHANDLES;
    window.hStdInput = start.input.get();
    window.hStdOutput = start.output.get();
    window.hStdError = start.errors.get();
    PROCESS_INFORMATION started{};
    if (!CreateProcessW(wide(program), wide(line), nullptr, nullptr, TRUE, start.flags, nullptr, nullptr,
                        &window, &started))
        return command_not_found;
    const File process(started.hProcess), thread(started.hThread);
    WaitForSingleObject(process.get(), INFINITE);
    DWORD exit_code = 0;
    GetExitCodeProcess(process.get(), &exit_code);
    return static_cast<int>(exit_code);
}

} // namespace tolvex
