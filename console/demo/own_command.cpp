#include "console/demo/own_command.hpp"

#include "core/errors.hpp"

#include <cstdio>
#include <cstdlib>
#include <memory>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

namespace tolvex::console {

namespace {

using File = std::unique_ptr<std::FILE, int (*)(std::FILE*)>;

File file_with(const std::string& content)
{
    File file(std::tmpfile(), std::fclose);
    if (!file || std::fwrite(content.data(), 1, content.size(), file.get()) != content.size() ||
        std::fflush(file.get()) != 0)
        throw invalid_call(u"no se pudo escribir en la carpeta temporal");
    std::rewind(file.get());
    return file;
}

void pass_on(const char* variable, const std::string& value) { setenv(variable, value.c_str(), 1); }

// In the environment while the command is started: its command line others may read.
class PassedOnPassword
{
public:
    explicit PassedOnPassword(const std::string& password) { pass_on(password_variable, password); }
    ~PassedOnPassword() { unsetenv(password_variable); }
    PassedOnPassword(const PassedOnPassword&) = delete;
};

} // namespace

int run_own_command(const std::vector<std::string>& words, const Place& place, const std::string& input)
{
    pass_on("TOLVEX_SERVIDOR", place.server);
    pass_on("TOLVEX_BD", place.database);
    pass_on("TOLVEX_USUARIO", place.user);
    const PassedOnPassword password(place.password);
    std::vector<char*> arguments = {const_cast<char*>("tolvex")};
    for (const std::string& word : words) arguments.push_back(const_cast<char*>(word.c_str()));
    arguments.push_back(nullptr);

    const File given = file_with(input);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, fileno(given.get()), STDIN_FILENO);
    posix_spawnattr_t attributes;
    posix_spawnattr_init(&attributes);
    posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSID);
    std::fflush(stdout);
    pid_t process = 0;
    const int failed =
        posix_spawn(&process, "/proc/self/exe", &actions, &attributes, arguments.data(), environ);
    posix_spawnattr_destroy(&attributes);
    posix_spawn_file_actions_destroy(&actions);
    if (failed != 0) throw invalid_call(u"no se pudo volver a ejecutar el programa");
    int status = 0;
    waitpid(process, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}

} // namespace tolvex::console
