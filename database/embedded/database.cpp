#include "database/embedded/database.hpp"

#include "core/errors.hpp"
#include "core/numbers.hpp"
#include "database/embedded/reasons.hpp"

#include <algorithm>
#include <filesystem>
#include <utility>

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

Error refused()
{
    return {database_error, u"La base de datos embebida sólo admite consultar, agregar, cambiar y borrar "
                            u"registros, y la instrucción pedía otra cosa: no se ejecutó. Vea si un dato "
                            u"capturado lleva apóstrofos"};
}

class Unrestricted
{
public:
    explicit Unrestricted(bool& flag) : flag_(flag) { flag_ = true; }
    ~Unrestricted() { flag_ = false; }
    Unrestricted(const Unrestricted&) = delete;

private:
    bool& flag_;
};

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
    check(restrict_to(rights_, handle));
}

void Database::check(int code) const
{
    if (code == SQLITE_OK || code == SQLITE_ROW || code == SQLITE_DONE) return;
    const bool described = handle() && sqlite3_errcode(handle()) == code;
    const Text words = to_text(described ? sqlite3_errmsg(handle()) : sqlite3_errstr(code));
    if (was_refused(words)) throw refused();
    const Text reason = why(code);
    if (reason.empty()) throw Error(database_error, reason_in_spanish(words));
    throw Error(database_error,
                u"Base de datos " + file_ + u": " + reason + u" (SQLite " + decimal(code) + u")");
}

void Database::run(const std::string& sql) { rows(sql); }

std::string Database::answer(const std::string& sql)
{
    const auto all = rows(sql);
    return all.empty() ? "" : all.front().front();
}

std::vector<std::vector<std::string>> Database::rows(const std::string& sql)
{
    using Rows = std::vector<std::vector<std::string>>;
    const auto keep = [](void* kept, int count, char** values, char**) {
        auto& row = static_cast<Rows*>(kept)->emplace_back();
        for (int i = 0; i < count; ++i) row.emplace_back(values[i] ? values[i] : "");
        return 0;
    };
    const Unrestricted own_statement(rights_.unrestricted);
    Rows all;
    check(sqlite3_exec(handle(), sql.c_str(), keep, &all, nullptr));
    return all;
}

void Database::limit_steps(int seconds)
{
    constexpr int instructions_between = 100'000; // of the engine: some milliseconds
    longest_step_ = std::chrono::seconds(std::max(seconds, 0));
    sqlite3_progress_handler(handle(), instructions_between, takes_too_long, this);
}

int Database::step(sqlite3_stmt* statement) const
{
    if (longest_step_ > Clock::duration::zero()) latest_ = Clock::now() + longest_step_;
    const int code = sqlite3_step(statement);
    latest_ = Clock::time_point::max();
    return code;
}

int Database::takes_too_long(void* database) noexcept
{
    return Clock::now() > static_cast<const Database*>(database)->latest_;
}

// By us or, where it is about the schema's own table, by the engine before it asks us.
bool Database::was_refused(const Text& words) const
{
    return std::exchange(rights_.refused, false) || words.ends_with(u"may not be modified");
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
