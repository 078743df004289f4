#include "database/embedded/statement.hpp"

#include "core/errors.hpp"
#include "core/numbers.hpp"
#include "core/text.hpp"
#include "database/embedded/stored_dates.hpp"

#include <algorithm>

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
    {u"datetime2", ColumnKind::date, 27},  {u"date", ColumnKind::date, 10},
    {u"image", ColumnKind::binary, 0},     {u"varbinary", ColumnKind::binary, 0},
    {u"binary", ColumnKind::binary, 0}};

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
    sqlite3_destructor_type lifetime;

    int operator()(Null) const { return sqlite3_bind_null(statement, index); }
    int operator()(bool bit) const { return sqlite3_bind_int(statement, index, bit); }
    int operator()(std::int64_t number) const { return sqlite3_bind_int64(statement, index, number); }
    int operator()(double number) const { return sqlite3_bind_double(statement, index, number); }
    int operator()(Currency amount) const { return (*this)(amount.units()); }
    int operator()(Date date) const { return Binder{statement, index, SQLITE_TRANSIENT}(stored_date(date)); }
    int operator()(const Text& text) const
    {
        return sqlite3_bind_text16(statement, index, text.data(),
                                   static_cast<int>(text.size() * sizeof(char16_t)), lifetime);
    }
    int operator()(const Bytes& bytes) const
    {
        return sqlite3_bind_blob(statement, index, bytes.data.data(), static_cast<int>(bytes.data.size()),
                                 lifetime);
    }
};

} // namespace

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

Statement::Statement(std::shared_ptr<const Database> database, PreparedStatement& kept,
                     std::vector<Value> literals)
    : database_(std::move(database)), literals_(std::move(literals)), handle_(kept.handle.get(), {&kept})
{
    kept.runs = true;
    for (std::size_t i = 0; i < literals_.size(); ++i) lend(i, literals_[i]);
}

void Statement::Ending::operator()(sqlite3_stmt* handle) const
{
    if (!kept) {
        sqlite3_finalize(handle);
        return;
    }
    sqlite3_reset(handle); // says once more what a step that failed has said
    sqlite3_clear_bindings(handle);
    kept->runs = false;
}

std::size_t Statement::parameter_count() const
{
    return sqlite3_bind_parameter_count(handle_.get()) - literals_.size();
}

void Statement::bind(std::size_t parameter, const Value& value)
{
    database_->check(value.visit(Binder{handle_.get(), static_cast<int>(parameter) + 1, SQLITE_TRANSIENT}));
}

void Statement::lend(std::size_t parameter, const Value& value)
{
    database_->check(value.visit(Binder{handle_.get(), static_cast<int>(parameter) + 1, SQLITE_STATIC}));
}

Text Statement::parameter_name(std::size_t parameter) const
{
    const char* name = sqlite3_bind_parameter_name(handle_.get(), static_cast<int>(parameter) + 1);
    return name ? to_text(name) : Text();
}

bool Statement::step()
{
    const int code = database_->step(handle_.get());
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
    if (storage == SQLITE_BLOB) return bytes(i);
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
    case ColumnKind::binary:
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

Bytes Statement::bytes(int index) const
{
    const auto* data = static_cast<const char*>(sqlite3_column_blob(handle_.get(), index));
    if (!data) return {};
    return {{data, static_cast<std::size_t>(sqlite3_column_bytes(handle_.get(), index))}};
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
