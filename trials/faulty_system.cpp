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
#include <sys/file.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/types.h>
#include <sys/uio.h>
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
bool is_file(FILE* stream) { return stream && is_file(fileno(stream)); }

int (*program)(int, char**, char**) = nullptr;

int main_of_program(int argc, char** argv, char** environment)
{
    begun = true;
    return program(argc, argv, environment);
}

// Its descriptor stays taken.
void close_to_all(int file)
{
    const auto nowhere = static_cast<int>(syscall(SYS_openat, AT_FDCWD, "/", O_PATH));
    dup2(nowhere, file);
    close(nowhere);
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
FAULTY(ssize_t, writev, -1, (int file, const iovec* parts, int count), (file, parts, count), is_file(file))
FAULTY(int, fsync, -1, (int file), (file), true)
FAULTY(int, fdatasync, -1, (int file), (file), true)
FAULTY(int, ftruncate64, -1, (int file, off64_t size), (file, size), true)
FAULTY(int, flock, -1, (int file, int how), (file, how), true)
FAULTY(int, access, -1, (const char* path, int rights), (path, rights), true)
FAULTY(int, stat, -1, (const char* path, struct stat* facts), (path, facts), true)
FAULTY(int, stat64, -1, (const char* path, struct stat64* facts), (path, facts), true)
FAULTY(int, lstat, -1, (const char* path, struct stat* facts), (path, facts), true)
FAULTY(int, lstat64, -1, (const char* path, struct stat64* facts), (path, facts), true)
FAULTY(int, fstat, -1, (int file, struct stat* facts), (file, facts), is_file(file))
FAULTY(int, fstat64, -1, (int file, struct stat64* facts), (file, facts), is_file(file))
FAULTY(ssize_t, readlink, -1, (const char* path, char* text, size_t room), (path, text, room), true)
FAULTY(void*, mmap64, MAP_FAILED, (void* place, size_t size, int rights, int kind, int file, off64_t from),
       (place, size, rights, kind, file, from), is_file(file))
FAULTY(int, pipe2, -1, (int* ends, int flags), (ends, flags), true)
FAULTY(int, fchmod, -1, (int file, mode_t mode), (file, mode), true)
FAULTY(int, fchmodat, -1, (int in, const char* path, mode_t mode, int how), (in, path, mode, how), true)
FAULTY(int, rename, -1, (const char* from, const char* to), (from, to), true)
FAULTY(int, renameat2, -1, (int from_in, const char* from, int to_in, const char* to, unsigned flags),
       (from_in, from, to_in, to, flags), true)
FAULTY(int, unlink, -1, (const char* path), (path), true)
FAULTY(int, remove, -1, (const char* path), (path), true)
FAULTY(int, mkdir, -1, (const char* path, mode_t mode), (path, mode), true)
FAULTY(int, unlinkat, -1, (int in, const char* path, int how), (in, path, how), true)
FAULTY(int, rmdir, -1, (const char* path), (path), true)
FAULTY(char*, mkdtemp, nullptr, (char* path), (path), true)
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

// With a third argument or without.
#define FAULTY_VARIADIC(name, Place, second, Third, concerned)                                               \
    extern "C" int name(Place place, int second, ...)                                                        \
    {                                                                                                        \
        va_list rest;                                                                                        \
        va_start(rest, second);                                                                              \
        const auto third = va_arg(rest, Third);                                                              \
        va_end(rest);                                                                                        \
        static const auto call = actual(#name, static_cast<int (*)(Place, int, ...)>(nullptr));              \
        return (concerned) && goes_wrong("files", #name) ? -1 : call(place, second, third);                  \
    }

FAULTY_VARIADIC(open, const char*, flags, mode_t, true)
FAULTY_VARIADIC(open64, const char*, flags, mode_t, true)
FAULTY_VARIADIC(fcntl64, int, order, void*, is_file(place))

// From here on the stream's file can be neither read nor written: its buffer comes upon that in its own time.
#define FAULTY_STREAM(result, name, parameters, arguments)                                                   \
    extern "C" result name parameters                                                                        \
    {                                                                                                        \
        static const auto call = actual(#name, static_cast<result(*) parameters>(nullptr));                  \
        if (!is_file(stream) || !goes_wrong("files", #name)) return call arguments;                          \
        const int error = errno;                                                                             \
        close_to_all(fileno(stream));                                                                        \
        const auto given = call arguments;                                                                   \
        errno = error;                                                                                       \
        return given;                                                                                        \
    }

FAULTY_STREAM(size_t, fread, (void* bytes, size_t size, size_t count, FILE* stream),
              (bytes, size, count, stream))
FAULTY_STREAM(size_t, fwrite, (const void* bytes, size_t size, size_t count, FILE* stream),
              (bytes, size, count, stream))
FAULTY_STREAM(int, fflush, (FILE * stream), (stream))
FAULTY_STREAM(int, fclose, (FILE * stream), (stream))

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
FAULTY_STATEMENT(SQLAllocHandle, (SQLSMALLINT kind, SQLHANDLE owner, SQLHANDLE* given), (kind, owner, given))
FAULTY_STATEMENT(SQLSetStmtAttrW, (SQLHSTMT statement, SQLINTEGER which, SQLPOINTER value, SQLINTEGER length),
                 (statement, which, value, length))
FAULTY_STATEMENT(SQLBindParameter,
                 (SQLHSTMT statement, SQLUSMALLINT number, SQLSMALLINT way, SQLSMALLINT c_type,
                  SQLSMALLINT type, SQLULEN size, SQLSMALLINT digits, SQLPOINTER value, SQLLEN room,
                  SQLLEN* length),
                 (statement, number, way, c_type, type, size, digits, value, room, length))
FAULTY_STATEMENT(SQLNumResultCols, (SQLHSTMT statement, SQLSMALLINT* count), (statement, count))
FAULTY_STATEMENT(SQLDescribeColW,
                 (SQLHSTMT statement, SQLUSMALLINT number, SQLWCHAR* name, SQLSMALLINT room,
                  SQLSMALLINT* length, SQLSMALLINT* type, SQLULEN* size, SQLSMALLINT* digits,
                  SQLSMALLINT* nullable),
                 (statement, number, name, room, length, type, size, digits, nullable))
FAULTY_STATEMENT(SQLColAttributeW,
                 (SQLHSTMT statement, SQLUSMALLINT number, SQLUSMALLINT which, SQLPOINTER text,
                  SQLSMALLINT room, SQLSMALLINT* length, SQLLEN* value),
                 (statement, number, which, text, room, length, value))
FAULTY_STATEMENT(SQLGetData,
                 (SQLHSTMT statement, SQLUSMALLINT number, SQLSMALLINT type, SQLPOINTER value, SQLLEN room,
                  SQLLEN* length),
                 (statement, number, type, value, room, length))
FAULTY_STATEMENT(SQLGetInfoW,
                 (SQLHDBC session, SQLUSMALLINT which, SQLPOINTER value, SQLSMALLINT room,
                  SQLSMALLINT* length),
                 (session, which, value, room, length))
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
