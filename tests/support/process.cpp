#include "support/process.hpp"

#include "support/files.hpp"
#include "support/temporary_folder.hpp"

#include <cstdlib>
#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace tolvex::testing {

namespace {

void redirect(int descriptor, const std::string& path)
{
    const int file = open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
    if (file < 0 || dup2(file, descriptor) < 0) _exit(126);
}

} // namespace

Outcome run_program(const std::vector<std::string>& words, const std::string& folder,
                    const std::vector<std::pair<std::string, std::string>>& variables)
{
    const TemporaryFolder said;
    const std::string output = said.path() / "output", errors = said.path() / "errors";
    std::vector<char*> arguments;
    for (const std::string& word : words) arguments.push_back(const_cast<char*>(word.c_str()));
    arguments.push_back(nullptr);

    const pid_t process = fork();
    if (process == 0) {
        for (const auto& [name, value] : variables) setenv(name.c_str(), value.c_str(), 1);
        if (chdir(folder.c_str()) != 0) _exit(126);
        redirect(STDOUT_FILENO, output);
        redirect(STDERR_FILENO, errors);
        execvp(arguments[0], arguments.data());
        _exit(127);
    }
    int status = 0;
    waitpid(process, &status, 0);
    return {WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status), read_file(output),
            read_file(errors)};
}

} // namespace tolvex::testing
