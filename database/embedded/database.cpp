#include "database/embedded/database.hpp"

#include "core/errors.hpp"

#include <filesystem>

namespace tolvex::embedded {

namespace {

Text why_it_does_not_open(const Text& file)
{
    std::error_code ignored;
    const std::filesystem::path path(file);
    if (std::filesystem::is_directory(path, ignored)) return u"es una carpeta; indique un archivo";
    const auto folder = path.parent_path();
    if (!folder.empty() && !std::filesystem::is_directory(folder, ignored))
        return u"no existe la carpeta " + folder.u16string() + u"; créela o indique otra";
    return u"no hay permiso para abrir o crear el archivo; dé permiso de lectura y escritura en él y en su "
           u"carpeta";
}

} // namespace

Database::Database(Text file) : file_(std::move(file))
{
    if (file_.empty()) throw Error(database_error, u"Falta el nombre del archivo de la base de datos");
    sqlite3* handle = nullptr;
    const int code =
        sqlite3_open_v2(to_utf8(file_).c_str(), &handle, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, nullptr);
    handle_.reset(handle);
    check(code);
    check(sqlite3_extended_result_codes(handle, 1));
}

void Database::check(int code) const
{
    if (code == SQLITE_OK || code == SQLITE_ROW || code == SQLITE_DONE) return;
    const bool described = handle() && sqlite3_errcode(handle()) == code;
    const Text words = to_text(described ? sqlite3_errmsg(handle()) : sqlite3_errstr(code));
    const Text reason = why(code);
    if (reason.empty()) throw Error(database_error, words);
    throw Error(database_error, u"Base de datos " + file_ + u": " + reason + u" (" + words + u")");
}

void Database::run(const char* sql) { check(sqlite3_exec(handle(), sql, nullptr, nullptr, nullptr)); }

std::string Database::answer(const char* sql)
{
    std::string text;
    const auto keep = [](void* kept, int count, char** values, char**) {
        if (count > 0 && values[0]) *static_cast<std::string*>(kept) = values[0];
        return 0;
    };
    check(sqlite3_exec(handle(), sql, keep, &text, nullptr));
    return text;
}

// Why the file, rather than the statement, is at fault and what to do; empty when it is the statement.
Text Database::why(int code) const
{
    switch (code & 0xFF) {
    case SQLITE_CANTOPEN:
        return why_it_does_not_open(file_);
    case SQLITE_NOTADB:
        return u"el archivo no es una base de datos; indique otro";
    case SQLITE_CORRUPT:
        return u"el archivo está dañado; recupérelo de un respaldo";
    case SQLITE_BUSY:
        return u"otro programa está escribiendo en ella; espere a que termine";
    case SQLITE_READONLY:
        return u"el archivo o su carpeta son de sólo lectura; dé permiso de escritura en ellos";
    case SQLITE_FULL:
        return u"el disco está lleno; libere espacio";
    case SQLITE_IOERR:
        return u"falló la lectura o la escritura; revise el disco o la red";
    }
    return {};
}

} // namespace tolvex::embedded
