// A library to be loaded before a program (LD_PRELOAD): the FAULT_AT-th of its calls of a group goes wrong.
//
//   FAULT_CALLS   files        touching files and starting programs: "fails" (EIO), "full" (ENOSPC), "killed"
//                 statements   of ODBC: "fails", "lost" (the connection is gone from then on), "unanswered"
//                              (the server did it, and the connection is gone), "killed"
//                 memory       "fails": there is none
//   FAULT_KIND    one of the words above
//   FAULT_LOG     the file that receives the call's name; it is not there when the program made fewer calls
//
// What is printed on the terminal is left alone, and programs that are started work as always.
#include <cerrno>
#include <csignal>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <dlfcn.h>
#include <fcntl.h>
#include <spawn.h>
#include <sql.h>
#include <sqlext.h>
#include <string_view>
#include <sys/syscall.h>
#include <sys/types.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

struct Plan
{
    Plan()
    {
        const char* at = std::getenv("FAULT_AT");
        place = at ? std::atol(at) : 0;
        for (auto [value, name] : {std::pair{calls, "FAULT_CALLS"}, {kind, "FAULT_KIND"}, {log, "FAULT_LOG"}})
            if (const char* given = std::getenv(name)) std::snprintf(value, longest, "%s", given);
        for (const char* name : {"LD_PRELOAD", "FAULT_AT", "FAULT_CALLS", "FAULT_KIND", "FAULT_LOG"})
            unsetenv(name);
    }

    static constexpr int longest = 1024;
    long place = 0;
    char calls[longest] = "", kind[longest] = "", log[longest] = ""; // without memory of the heap
};

Plan plan;
bool begun = false; // before main() nobody can answer for a fault

bool is(const char* kind) { return std::string_view(plan.kind) == kind; }

// Past the calls below, which would count.
void note(const char* call)
{
    const auto file =
        static_cast<int>(syscall(SYS_openat, AT_FDCWD, plan.log, O_WRONLY | O_CREAT | O_APPEND, 0600));
    syscall(SYS_write, file, call, std::strlen(call));
    syscall(SYS_close, file);
}

// Is this call the one that goes wrong?
bool goes_wrong(std::string_view group, const char* call)
{
    if (!begun || plan.place == 0 || group != plan.calls || --plan.place != 0) return false;
    note(call);
    if (is("killed")) std::raise(SIGKILL);
    errno = group == "memory" ? ENOMEM : is("full") ? ENOSPC : EIO;
    return true;
}

template <class Function>
Function actual(const char* name, Function)
{
    return reinterpret_cast<Function>(dlsym(RTLD_NEXT, name));
}

bool is_file(int descriptor) { return descriptor > STDERR_FILENO; }

int (*program)(int, char**, char**) = nullptr;

int main_of_program(int argc, char** argv, char** environment)
{
    begun = true;
    return program(argc, argv, environment);
}

// A program that was started is ended by somebody else.
bool dies(pid_t child)
{
    if (child > 0 && goes_wrong("files", "waitpid")) kill(child, SIGKILL);
    return false;
}

} // namespace

// What the C library runs a program by.
extern "C" int __libc_start_main(int (*main)(int, char**, char**), int argc, char** argv, void (*init)(),
                                 void (*fini)(), void (*end)(), void* stack)
{
    program = main;
    return actual("__libc_start_main", __libc_start_main)(main_of_program, argc, argv, init, fini, end,
                                                          stack);
}

// --- files and programs --------------------------------------------------------------------------------

// A call that fails gives -1, or null.
#define FAULTY(result, name, wrong, parameters, arguments, concerned)                                        \
    extern "C" result name parameters                                                                        \
    {                                                                                                        \
        static const auto call = actual(#name, static_cast<result(*) parameters>(nullptr));                  \
        if ((concerned) && goes_wrong("files", #name)) return wrong;                                         \
        return call arguments;                                                                               \
    }

FAULTY(ssize_t, write, -1, (int file, const void* bytes, size_t size), (file, bytes, size), is_file(file))
FAULTY(ssize_t, read, -1, (int file, void* bytes, size_t size), (file, bytes, size), is_file(file))
FAULTY(ssize_t, pread64, -1, (int file, void* bytes, size_t size, off64_t place), (file, bytes, size, place),
       true)
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
FAULTY(pid_t, waitpid, -1, (pid_t id, int* status, int options), (id, status, options), dies(id))

#define FAULTY_OPEN(name)                                                                                    \
    extern "C" int name(const char* path, int flags, ...)                                                    \
    {                                                                                                        \
        va_list rest;                                                                                        \
        va_start(rest, flags);                                                                               \
        const auto mode = va_arg(rest, mode_t);                                                              \
        va_end(rest);                                                                                        \
        static const auto call = actual(#name, static_cast<int (*)(const char*, int, ...)>(nullptr));        \
        return goes_wrong("files", #name) ? -1 : call(path, flags, mode);                                    \
    }

FAULTY_OPEN(open)
FAULTY_OPEN(open64)

// --- statements ----------------------------------------------------------------------------------------

namespace {

bool refused = false, lost = false;

template <class Call>
SQLRETURN stated(const char* name, Call call)
{
    if (lost) return SQL_ERROR;
    refused = goes_wrong("statements", name);
    if (!refused) return call();
    lost = !is("fails");
    if (is("unanswered")) call();
    return SQL_ERROR;
}

void copy(std::u16string_view text, SQLWCHAR* to)
{
    for (const char16_t c : text) *to++ = c;
    *to = 0;
}

} // namespace

#define FAULTY_STATEMENT(name, parameters, arguments)                                                        \
    extern "C" SQLRETURN name parameters                                                                     \
    {                                                                                                        \
        static const auto call = actual(#name, static_cast<SQLRETURN(*) parameters>(nullptr));               \
        return stated(#name, [&] { return call arguments; });                                                \
    }

FAULTY_STATEMENT(SQLDriverConnectW,
                 (SQLHDBC session, SQLHWND window, SQLWCHAR* given, SQLSMALLINT length, SQLWCHAR* whole,
                  SQLSMALLINT room, SQLSMALLINT* needed, SQLUSMALLINT completion),
                 (session, window, given, length, whole, room, needed, completion))
FAULTY_STATEMENT(SQLExecDirectW, (SQLHSTMT statement, SQLWCHAR* sql, SQLINTEGER length),
                 (statement, sql, length))
FAULTY_STATEMENT(SQLFetch, (SQLHSTMT statement), (statement))
FAULTY_STATEMENT(SQLMoreResults, (SQLHSTMT statement), (statement))
FAULTY_STATEMENT(SQLEndTran, (SQLSMALLINT kind, SQLHANDLE handle, SQLSMALLINT how), (kind, handle, how))
FAULTY_STATEMENT(SQLSetConnectAttrW, (SQLHDBC session, SQLINTEGER which, SQLPOINTER value, SQLINTEGER length),
                 (session, which, value, length))

extern "C" SQLRETURN SQLGetDiagRecW(SQLSMALLINT kind, SQLHANDLE handle, SQLSMALLINT number, SQLWCHAR* state,
                                    SQLINTEGER* native, SQLWCHAR* message, SQLSMALLINT room,
                                    SQLSMALLINT* length)
{
    static const auto call = actual("SQLGetDiagRecW", SQLGetDiagRecW);
    if (!refused && !lost) return call(kind, handle, number, state, native, message, room, length);
    if (number > 1) return SQL_NO_DATA;
    constexpr std::u16string_view words = u"la prueba lo dispuso";
    copy(lost ? u"08S01" : u"HY000", state);
    copy(words, message);
    *native = 0;
    *length = words.size();
    return SQL_SUCCESS;
}

// --- memory --------------------------------------------------------------------------------------------

// By the C library's own names: looking them up would ask for memory.
#define FAULTY_MEMORY(name, parameters, arguments)                                                           \
    extern "C" void* __libc_##name parameters;                                                               \
    extern "C" void* name parameters                                                                         \
    {                                                                                                        \
        return goes_wrong("memory", #name) ? nullptr : __libc_##name arguments;                              \
    }

FAULTY_MEMORY(malloc, (size_t size), (size))
FAULTY_MEMORY(calloc, (size_t count, size_t size), (count, size))
FAULTY_MEMORY(realloc, (void* block, size_t size), (block, size))

// Fontconfig does not stand a lack of memory: it would end the process.
#define SPARED(result, name, parameters, arguments)                                                          \
    extern "C" result name parameters                                                                        \
    {                                                                                                        \
        static const auto call = actual(#name, static_cast<result(*) parameters>(nullptr));                  \
        begun = false;                                                                                       \
        const auto given = call arguments;                                                                   \
        begun = true;                                                                                        \
        return given;                                                                                        \
    }

SPARED(int, FcConfigSubstitute, (void* settings, void* pattern, int kind), (settings, pattern, kind))
SPARED(void*, FcFontSort, (void* settings, void* pattern, int trim, void* characters, void* result),
       (settings, pattern, trim, characters, result))
