// A library to be loaded before a program (LD_PRELOAD): the FAULT_AT-th of its calls that touch files or
// start programs goes wrong, as FAULT_KIND says: "fails" (EIO), "full" (ENOSPC) or "killed". FAULT_LOG names
// the file that receives the call's name; when it stays empty the program made fewer calls. What is printed
// on the terminal is left alone, and programs that are started work as always.
#include <cerrno>
#include <csignal>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <dlfcn.h>
#include <fcntl.h>
#include <spawn.h>
#include <string>
#include <sys/syscall.h>
#include <sys/types.h>
#include <unistd.h>

namespace {

struct Plan
{
    Plan()
    {
        const char* at = std::getenv("FAULT_AT");
        place = at ? std::atol(at) : 0;
        for (auto [value, name] : {std::pair{&kind, "FAULT_KIND"}, {&log, "FAULT_LOG"}})
            if (const char* given = std::getenv(name)) *value = given;
        for (const char* name : {"LD_PRELOAD", "FAULT_AT", "FAULT_KIND", "FAULT_LOG"}) unsetenv(name);
    }

    long place = 0;
    std::string kind, log;
};

Plan& plan()
{
    static Plan& made = *new Plan;
    return made;
}

[[gnu::constructor]] void begin() { plan(); }

// Past the calls below, which would count.
void note(const char* call)
{
    const auto file = static_cast<int>(
        syscall(SYS_openat, AT_FDCWD, plan().log.c_str(), O_WRONLY | O_CREAT | O_APPEND, 0600));
    syscall(SYS_write, file, call, std::strlen(call));
    syscall(SYS_close, file);
}

// Is this call the one that goes wrong?
bool goes_wrong(const char* call)
{
    if (plan().place == 0 || --plan().place != 0) return false;
    note(call);
    if (plan().kind == "killed") std::raise(SIGKILL);
    errno = plan().kind == "full" ? ENOSPC : EIO;
    return true;
}

template <class Function>
Function actual(const char* name, Function)
{
    return reinterpret_cast<Function>(dlsym(RTLD_NEXT, name));
}

bool is_file(int descriptor) { return descriptor > STDERR_FILENO; }

} // namespace

// A call that fails gives -1, or null.
#define FAULTY(result, name, wrong, parameters, arguments, concerned)                                        \
    extern "C" result name parameters                                                                        \
    {                                                                                                        \
        static const auto call = actual(#name, static_cast<result(*) parameters>(nullptr));                  \
        if ((concerned) && goes_wrong(#name)) return wrong;                                                  \
        return call arguments;                                                                               \
    }

FAULTY(ssize_t, write, -1, (int file, const void* bytes, size_t size), (file, bytes, size), is_file(file))
FAULTY(ssize_t, pwrite64, -1, (int file, const void* bytes, size_t size, off64_t place),
       (file, bytes, size, place), true)
FAULTY(int, fsync, -1, (int file), (file), true)
FAULTY(int, fdatasync, -1, (int file), (file), true)
FAULTY(int, ftruncate64, -1, (int file, off64_t size), (file, size), true)
FAULTY(int, rename, -1, (const char* from, const char* to), (from, to), true)
FAULTY(int, unlink, -1, (const char* path), (path), true)
FAULTY(int, remove, -1, (const char* path), (path), true)
FAULTY(int, mkdir, -1, (const char* path, mode_t mode), (path, mode), true)
FAULTY(FILE*, fopen, nullptr, (const char* path, const char* mode), (path, mode), true)
FAULTY(FILE*, fopen64, nullptr, (const char* path, const char* mode), (path, mode), true)
FAULTY(int, posix_spawn, errno,
       (pid_t * id, const char* path, const posix_spawn_file_actions_t* actions,
        const posix_spawnattr_t* attributes, char* const* arguments, char* const* environment),
       (id, path, actions, attributes, arguments, environment), true)
FAULTY(int, posix_spawnp, errno,
       (pid_t * id, const char* path, const posix_spawn_file_actions_t* actions,
        const posix_spawnattr_t* attributes, char* const* arguments, char* const* environment),
       (id, path, actions, attributes, arguments, environment), true)

#define FAULTY_OPEN(name)                                                                                    \
    extern "C" int name(const char* path, int flags, ...)                                                    \
    {                                                                                                        \
        va_list rest;                                                                                        \
        va_start(rest, flags);                                                                               \
        const auto mode = va_arg(rest, mode_t);                                                              \
        va_end(rest);                                                                                        \
        static const auto call = actual(#name, static_cast<int (*)(const char*, int, ...)>(nullptr));        \
        return goes_wrong(#name) ? -1 : call(path, flags, mode);                                             \
    }

FAULTY_OPEN(open)
FAULTY_OPEN(open64)
