// Executes the command lines of a batch file one by one, never through a shell: words between blanks (or double
// quotes), and ">" into a file.
#include "platform/batch_runner.hpp"

#include "core/errors.hpp"
#include "platform/files.hpp"

#include <cerrno>
#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

extern char** environ;

namespace tolvex {

namespace {

constexpr int command_not_found = 127;

struct Command
{
    std::vector<std::string> words;
    std::string output; // file that receives standard output; empty for none
};

// The words of a command line; ">" is a word of its own.
std::vector<std::string> words_of(std::string_view line)
{
    std::vector<std::string> words;
    std::string word;
    bool quoted = false, in_word = false;
    const auto end_word = [&] {
        if (in_word) words.push_back(word);
        word.clear();
        in_word = false;
    };
    for (const char c : line) {
        if (c == '"') {
            quoted = !quoted;
            in_word = true;
        } else if (!quoted && (c == ' ' || c == '\t')) {
            end_word();
        } else if (!quoted && c == '>') {
            end_word();
            words.emplace_back(">");
        } else {
            word += c;
            in_word = true;
        }
    }
    end_word();
    return words;
}

// A word that is a documented path becomes the host's own.
std::string host_word(const std::string& word)
{
    return word.find('\\') == std::string::npos ? word : to_utf8(files::native_path(to_text(word)));
}

Command parse(std::string_view line)
{
    Command command;
    const std::vector<std::string> words = words_of(line);
    for (std::size_t i = 0; i < words.size(); ++i) {
        if (words[i] == ">" && i + 1 < words.size())
            command.output = host_word(words[++i]);
        else
            command.words.push_back(host_word(words[i]));
    }
    return command;
}

// The program in its folder or, if it is not there, its bare name, which the PATH finds.
std::string program_of(const Command& command)
{
    const std::string& given = command.words.front();
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
        posix_spawn_file_actions_addopen(&actions_, descriptor, path.c_str(), flags, 0666);
    }
    const posix_spawn_file_actions_t* get() const { return &actions_; }

private:
    posix_spawn_file_actions_t actions_;
};

int wait_for(pid_t process)
{
    int status = 0;
    while (waitpid(process, &status, 0) < 0)
        if (errno != EINTR) return 0; // a host that ignores its children has no exit code for us
    return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}

int run(const Command& command, WindowStyle style)
{
    Redirections files;
    if (style == WindowStyle::hidden) {
        files.open(STDIN_FILENO, "/dev/null", O_RDONLY);
        files.open(STDERR_FILENO, "/dev/null", O_WRONLY);
    }
    if (!command.output.empty()) files.open(STDOUT_FILENO, command.output, O_WRONLY | O_CREAT | O_TRUNC);

    std::vector<char*> arguments;
    for (const std::string& word : command.words) arguments.push_back(const_cast<char*>(word.c_str()));
    arguments.push_back(nullptr);
    pid_t process = 0;
    const std::string program = program_of(command);
    // As the command interpreter does, a program that cannot be started does not stop the lines after it.
    if (posix_spawnp(&process, program.c_str(), files.get(), nullptr, arguments.data(), environ) != 0)
        return command_not_found;
    return wait_for(process);
}

std::vector<std::string> lines_of(const std::string& batch)
{
    std::vector<std::string> lines;
    for (const Text& line : split(to_text(batch), u'\n')) {
        lines.push_back(to_utf8(without(line, u'\r')));
        if (lines.back().find_first_not_of(' ') == std::string::npos) lines.pop_back();
    }
    return lines;
}

} // namespace

int run_batch_file(TextView path, WindowStyle style)
{
    int exit_code = 0;
    for (const std::string& line : lines_of(files::read(path))) exit_code = run(parse(line), style);
    return exit_code;
}

std::string batch_file_bytes(TextView text) { return to_utf8(text); }

} // namespace tolvex
