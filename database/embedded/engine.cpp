#include "database/embedded/engine.hpp"

#include "core/errors.hpp"
#include "core/numbers.hpp"
#include "core/text.hpp"
#include "database/embedded/dates.hpp"

#include <algorithm>
#include <filesystem>

namespace tolvex::embedded {

namespace {

// Declared column types by SQL Server's names, with the digits of those that have a fixed count.
struct DeclaredType
{
    TextView name;
    ColumnKind kind;
    std::size_t digits;
};

constexpr DeclaredType declared_types[] = {
    {u"bit", ColumnKind::bit, 1},          {u"tinyint", ColumnKind::integer, 3},
    {u"smallint", ColumnKind::integer, 5}, {u"int", ColumnKind::integer, 10},
    {u"integer", ColumnKind::integer, 10}, {u"bigint", ColumnKind::integer, 19},
    {u"float", ColumnKind::floating, 15},  {u"real", ColumnKind::floating, 7},
    {u"money", ColumnKind::money, 19},     {u"smallmoney", ColumnKind::money, 10},
    {u"decimal", ColumnKind::money, 18},   {u"numeric", ColumnKind::money, 18},
    {u"datetime", ColumnKind::date, 23},   {u"smalldatetime", ColumnKind::date, 16},
    {u"datetime2", ColumnKind::date, 27},  {u"date", ColumnKind::date, 10}};

Column column_of_declared_type(const Text& declared)
{
    const auto opening = std::min(declared.find(u'('), declared.size());
    const Text name = trim(declared.substr(0, opening));
    const auto known =
        std::find_if(std::begin(declared_types), std::end(declared_types),
                     [&](const DeclaredType& type) { return equal_ignoring_case(type.name, name); });
    Column column;
    if (known != std::end(declared_types)) {
        column.kind = known->kind;
        column.size = known->digits;
    }
    if (opening < declared.size())
        column.size = static_cast<std::size_t>(leading_number(declared.substr(opening + 1)));
    return column;
}

ColumnKind kind_of_storage(int storage)
{
    if (storage == SQLITE_INTEGER) return ColumnKind::integer;
    return storage == SQLITE_FLOAT ? ColumnKind::floating : ColumnKind::text;
}

Value date_value(const Text& stored)
{
    try {
        return read_date(stored);
    } catch (const Error&) {
        return stored; // written by somebody else; it shows as it is
    }
}

struct Binder
{
    sqlite3_stmt* statement;
    int index;

    int operator()(Null) const { return sqlite3_bind_null(statement, index); }
    int operator()(bool bit) const { return sqlite3_bind_int(statement, index, bit); }
    int operator()(std::int64_t number) const { return sqlite3_bind_int64(statement, index, number); }
    int operator()(double number) const { return sqlite3_bind_double(statement, index, number); }
    int operator()(Currency amount) const { return (*this)(amount.units()); }
    int operator()(Date date) const { return (*this)(stored_date(date)); }
    int operator()(const Text& text) const
    {
        return sqlite3_bind_text16(statement, index, text.data(),
                                   static_cast<int>(text.size() * sizeof(char16_t)), SQLITE_TRANSIENT);
    }
};

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
        return u"otro programa está escribiendo en ella; espere a que termine y repita la operación";
    case SQLITE_READONLY:
        return u"el archivo o su carpeta son de sólo lectura; dé permiso de escritura en ellos";
    case SQLITE_FULL:
        return u"el disco está lleno; libere espacio y repita la operación";
    case SQLITE_IOERR:
        return u"falló la lectura o la escritura; revise el disco o la red";
    }
    return {};
}

Statement::Statement(std::shared_ptr<const Database> database, std::string_view& sql)
    : database_(std::move(database))
{
    sqlite3_stmt* handle = nullptr;
    const char* tail = nullptr;
    database_->check(
        sqlite3_prepare_v2(database_->handle(), sql.data(), static_cast<int>(sql.size()), &handle, &tail));
    handle_.reset(handle);
    sql.remove_prefix(handle ? tail - sql.data() : sql.size());
}

std::size_t Statement::parameter_count() const { return sqlite3_bind_parameter_count(handle_.get()); }

void Statement::bind(std::size_t parameter, const Value& value)
{
    database_->check(value.visit(Binder{handle_.get(), static_cast<int>(parameter) + 1}));
}

bool Statement::step()
{
    const int code = sqlite3_step(handle_.get());
    database_->check(code);
    return code == SQLITE_ROW;
}

std::size_t Statement::column_count() const { return sqlite3_column_count(handle_.get()); }

Column Statement::column(std::size_t index) const
{
    const int i = static_cast<int>(index);
    const auto* declared = static_cast<const char16_t*>(sqlite3_column_decltype16(handle_.get(), i));
    Column column = column_of_declared_type(declared ? declared : u"");
    if (!declared) column.kind = kind_of_storage(sqlite3_column_type(handle_.get(), i));
    const auto* name = static_cast<const char16_t*>(sqlite3_column_name16(handle_.get(), i));
    if (!name) throw std::bad_alloc();
    column.name = name;
    return column;
}

Value Statement::value(std::size_t index, ColumnKind kind) const
{
    const int i = static_cast<int>(index);
    const int storage = sqlite3_column_type(handle_.get(), i);
    if (storage == SQLITE_NULL) return {};
    const bool is_number = storage == SQLITE_INTEGER || storage == SQLITE_FLOAT;
    switch (kind) {
    case ColumnKind::text:
        return text(i);
    case ColumnKind::date:
        return date_value(text(i));
    case ColumnKind::bit:
        return is_number ? Value(sqlite3_column_int(handle_.get(), i) != 0) : text(i);
    case ColumnKind::money:
        return is_number ? Value(stored_value(i).currency()) : text(i);
    case ColumnKind::floating:
        return is_number ? Value(sqlite3_column_double(handle_.get(), i)) : text(i);
    case ColumnKind::integer:
        break;
    }
    return stored_value(i);
}

Text Statement::text(int index) const
{
    const auto* text = static_cast<const char16_t*>(sqlite3_column_text16(handle_.get(), index));
    if (!text) return {};
    return Text(text, sqlite3_column_bytes16(handle_.get(), index) / sizeof(char16_t));
}

Value Statement::stored_value(int index) const
{
    switch (sqlite3_column_type(handle_.get(), index)) {
    case SQLITE_INTEGER:
        return std::int64_t{sqlite3_column_int64(handle_.get(), index)};
    case SQLITE_FLOAT:
        return sqlite3_column_double(handle_.get(), index);
    }
    return text(index);
}

} // namespace tolvex::embedded
