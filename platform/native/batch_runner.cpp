// Executes the command lines of a batch file one by one, never through a shell.
#include "platform/batch_runner.hpp"

#include "core/errors.hpp"
#include "platform/batch_lines.hpp"
#include "platform/clock.hpp"
#include "platform/files.hpp"
#include "platform/given_answers.hpp"
#include "platform/native/host_path.hpp"
#include "platform/native/reason_of.hpp"

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <mutex>
#include <optional>
#include <spawn.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace tolvex {

namespace {

constexpr int command_not_found = 127;

// What opens a window with a terminal and runs a program in it.
constexpr const char* terminal_windows[] = {"xterm", "x-terminal-emulator"};

// A word that is a documented path becomes the host's own.
std::string host_word(const Text& word)
{
    return word.find(u'\\') == Text::npos ? to_utf8(word) : files::new_host_path(word).string();
}

// The program in its folder or, if it is not there, its bare name, which the PATH finds.
std::string program_of(const std::string& given)
{
    if (access(given.c_str(), X_OK) == 0) return given;
    return given.substr(given.find_last_of('/') + 1);
}

// What a started program's standard files are.
class Redirections
{
public:
    Redirections() { posix_spawn_file_actions_init(&actions_); }
    ~Redirections() { posix_spawn_file_actions_destroy(&actions_); }
    Redirections(const Redirections&) = delete;

    void open(int descriptor, const std::string& path, int flags)
    {
        posix_spawn_file_actions_addopen(&actions_, descriptor, path.c_str(), flags, S_IRUSR | S_IWUSR);
    }
    void take(int descriptor, int opened) { posix_spawn_file_actions_adddup2(&actions_, opened, descriptor); }
    const posix_spawn_file_actions_t* get() const { return &actions_; }

private:
    posix_spawn_file_actions_t actions_;
};

// What a started program is beyond that.
class Attributes
{
public:
    Attributes() { posix_spawnattr_init(&attributes_); }
    ~Attributes() { posix_spawnattr_destroy(&attributes_); }
    Attributes(const Attributes&) = delete;

    void without_terminal() { add(POSIX_SPAWN_SETSID); }
    // Ctrl-C at the terminal, or the end of a service, is for us to heed.
    void without_interruptions()
    {
        sigset_t blocked;
        sigemptyset(&blocked);
        for (const int signal : {SIGINT, SIGTERM}) sigaddset(&blocked, signal);
        posix_spawnattr_setsigmask(&attributes_, &blocked);
        add(POSIX_SPAWN_SETSIGMASK);
    }
    const posix_spawnattr_t* get() const { return &attributes_; }

private:
    void add(int flag)
    {
        short flags = 0;
        posix_spawnattr_getflags(&attributes_, &flags);
        posix_spawnattr_setflags(&attributes_, static_cast<short>(flags | flag));
    }

    posix_spawnattr_t attributes_;
};

// What is written is in the pipe at once: answers are short.
class Answers
{
public:
    explicit Answers(const std::string& lines)
    {
        int ends[2];
        if (pipe2(ends, O_CLOEXEC) != 0)
            throw invalid_call(u"no se pudo contestar al programa: " + reason_of(errno));
        output_ = ends[0];
        const bool whole = ::write(ends[1], lines.data(), lines.size()) == static_cast<ssize_t>(lines.size());
        close(ends[1]);
        if (!whole) throw invalid_call(u"no se pudo contestar al programa");
    }
    ~Answers() { close(output_); }
    Answers(const Answers&) = delete;

    int output() const { return output_; }

private:
    int output_;
};

std::vector<std::string> host_words(const BatchCommand& command)
{
    std::vector<std::string> words;
    for (const Text& word : command.words) words.push_back(host_word(word));
    words.front() = program_of(words.front());
    return words;
}

bool has_terminal()
{
    const int terminal = open("/dev/tty", O_RDWR | O_CLOEXEC);
    if (terminal >= 0) close(terminal);
    return terminal >= 0;
}

// Whoever started us gives the answers in a file or a pipe.
bool answers_are_given()
{
    struct stat input;
    return fstat(STDIN_FILENO, &input) == 0 && (S_ISREG(input.st_mode) || S_ISFIFO(input.st_mode));
}

// Whether a program that asks the user needs a window of its own for it.
bool needs_window() { return !has_terminal() && !answers_are_given() && std::getenv("DISPLAY"); }

// What a program inherits of the environment: all but the password of the database.
std::vector<char*> inherited_environment()
{
    std::vector<char*> inherited;
    for (char** variable = environ; *variable; ++variable)
        if (!std::string_view(*variable).starts_with("TOLVEX_CLAVE=")) inherited.push_back(*variable);
    inherited.push_back(nullptr);
    return inherited;
}

// While it lives, files are created for the user alone: keys and seals are private from their first byte. A
// program inherits that from the whole process, as spawning has no attribute for it; who starts another at
// the same time waits, so that each puts back what it found.
class PrivateFiles
{
public:
    PrivateFiles() : turn_(mutex_), before_(umask(S_IRWXG | S_IRWXO)) {}
    ~PrivateFiles() { umask(before_); }
    PrivateFiles(const PrivateFiles&) = delete;

private:
    inline static std::mutex mutex_;
    std::lock_guard<std::mutex> turn_;
    mode_t before_;
};

std::optional<pid_t> start(std::vector<std::string> words, const Redirections& files,
                           const Attributes& attributes = Attributes())
{
    std::vector<char*> arguments;
    for (std::string& word : words) arguments.push_back(word.data());
    arguments.push_back(nullptr);
    const PrivateFiles private_files;
    pid_t process = 0;
    const int error = posix_spawnp(&process, arguments.front(), files.get(), attributes.get(),
                                   arguments.data(), inherited_environment().data());
    return error == 0 ? std::optional(process) : std::nullopt;
}

std::optional<pid_t> start_in_window(const std::vector<std::string>& words, const Redirections& files)
{
    for (const char* window : terminal_windows) {
        std::vector<std::string> in_window = {window, "-e"};
        in_window.insert(in_window.end(), words.begin(), words.end());
        if (const auto process = start(in_window, files)) return process;
    }
    return {};
}

int wait_for(pid_t process)
{
    int status = 0;
    while (waitpid(process, &status, 0) < 0)
        if (errno != EINTR) return 0; // a host that ignores its children has no exit code for us
    return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}

std::optional<pid_t> start_with_answers(const std::vector<std::string>& words, Redirections& files,
                                        const std::string& lines)
{
    const Answers answers(lines);
    files.take(STDIN_FILENO, answers.output());
    files.open(STDERR_FILENO, "/dev/null", O_WRONLY);
    Attributes attributes;
    attributes.without_terminal();
    return start(words, files, attributes);
}

std::optional<pid_t> start_where_it_can_ask(const std::vector<std::string>& words, Redirections& files)
{
    if (const std::string* lines = GivenAnswers::current()) return start_with_answers(words, files, *lines);
    std::optional<pid_t> process;
    if (needs_window()) process = start_in_window(words, files);
    return process ? process : start(words, files);
}

int run(const BatchCommand& command, WindowStyle style)
{
    Redirections files;
    if (style == WindowStyle::hidden) {
        files.open(STDIN_FILENO, "/dev/null", O_RDONLY);
        files.open(STDERR_FILENO, "/dev/null", O_WRONLY);
    }
    if (!command.output.empty())
        files.open(STDOUT_FILENO, host_word(command.output), O_WRONLY | O_CREAT | O_TRUNC);

    const std::vector<std::string> words = host_words(command);
    Attributes attributes;
    attributes.without_interruptions();
    const auto process = style == WindowStyle::visible ? start_where_it_can_ask(words, files)
                                                       : start(words, files, attributes);
    // As the command interpreter does, a program that cannot be started does not stop the lines after it.
    return process ? wait_for(*process) : command_not_found;
}

} // namespace

int run_batch_file(TextView path, WindowStyle style)
{
    int exit_code = 0;
    for (const BatchCommand& command : parse_batch(to_text(files::read(path)))) {
        const std::int64_t start = milliseconds_running();
        exit_code = run(command, style);
        log_program(command, exit_code, milliseconds_running() - start);
    }
    return exit_code;
}

Text program_of_batch(TextView word)
{
    const std::string program = program_of(host_word(Text(word)));
    if (program.find('/') != std::string::npos) return to_text(program);
    const char* path = std::getenv("PATH");
    for (const Text& folder : split(to_text(path ? path : ""), u':')) {
        const std::string file = to_utf8(folder) + "/" + program;
        if (access(file.c_str(), X_OK) == 0) return to_text(file);
    }
    return {};
}

void require_batch_folder(TextView folder)
{
    if (folder.find(u' ') != TextView::npos)
        throw invalid_call(u"La ruta de la carpeta de trabajo no puede llevar blancos: " + Text(folder));
}

std::string batch_file_bytes(TextView text) { return to_utf8(text); }

} // namespace tolvex
