// sql DATABASE FILE: runs the statements of a file on an embedded database and prints the rows, columns
// between "|".
#include <sqlite3.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <sstream>

namespace {

int print_row(void*, int count, char** values, char**)
{
    for (int i = 0; i < count; ++i) std::printf("%s%s", i ? "|" : "", values[i] ? values[i] : "NULL");
    std::puts("");
    return 0;
}

} // namespace

int wmain(int count, wchar_t** arguments)
{
    if (count != 3) return 2;
    std::ifstream file(std::filesystem::path(arguments[2]), std::ios::binary);
    std::ostringstream statements;
    statements << file.rdbuf();
    sqlite3* database = nullptr;
    char* failure = nullptr;
    const bool done =
        sqlite3_open16(arguments[1], &database) == SQLITE_OK &&
        sqlite3_exec(database, statements.str().c_str(), print_row, nullptr, &failure) == SQLITE_OK;
    if (!done) std::fprintf(stderr, "sql: %s\n", failure ? failure : sqlite3_errmsg(database));
    sqlite3_close(database);
    return done ? 0 : 1;
}
