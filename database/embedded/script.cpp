#include "database/embedded/script.hpp"

#include "core/errors.hpp"
#include "database/embedded/tsql/rewriter.hpp"
#include "database/embedded/tsql/shape.hpp"

#include <utility>

namespace tolvex::embedded {

namespace {

// Whether the names of the literals, if there are any, are the statement's parameters in their order.
bool fits(sqlite3_stmt* handle, std::size_t literal_count)
{
    if (literal_count == 0) return true;
    const int count = sqlite3_bind_parameter_count(handle);
    for (int i = 1; i <= count; ++i) {
        const char* name = sqlite3_bind_parameter_name(handle, i);
        if (!name || name != "@" + std::to_string(i)) return false;
    }
    return static_cast<std::size_t>(count) == literal_count;
}

// None for what cannot stay prepared: several statements, none at all, or literals where the engine takes no
// values.
StatementHandle prepared(const Database& database, const Shape& shape)
{
    const std::string sql = to_utf8(to_sqlite(shape.sql()));
    sqlite3_stmt* handle = nullptr;
    const char* rest = nullptr;
    sqlite3_prepare_v3(database.handle(), sql.c_str(), static_cast<int>(sql.size()),
                       SQLITE_PREPARE_PERSISTENT, &handle, &rest);
    StatementHandle statement(handle);
    const bool is_alone = handle && std::string_view(rest).find_first_not_of(" ;") == std::string_view::npos;
    return is_alone && fits(handle, shape.literal_count()) ? std::move(statement) : nullptr;
}

std::optional<Statement> statement_of(const std::shared_ptr<const Database>& database, TextView sql)
{
    if (auto match = database->prepared().match(sql))
        return Statement(database, match->prepared, std::move(match->literals));
    Shape shape(sql);
    StatementHandle handle = prepared(*database, shape);
    if (!handle) return {};
    std::vector<Value> literals = shape.literals_of(sql).value();
    PreparedStatement& kept = database->prepared().keep(std::move(shape), std::move(handle));
    return Statement(database, kept, std::move(literals));
}

} // namespace

Script::Script(std::shared_ptr<const Database> database, TextView sql) : database_(std::move(database))
{
    if (sql.find(u'\0') != TextView::npos)
        throw Error(database_error, u"La instrucción SQL contiene un carácter nulo");
    only_ = statement_of(database_, sql);
    if (only_) return;
    text_ = to_utf8(to_sqlite(sql));
    rest_ = text_;
}

std::optional<Statement> Script::next()
{
    if (only_) return std::exchange(only_, std::nullopt);
    if (rest_.empty()) return {};
    Statement statement(database_, rest_);
    if (!statement.exists()) return {};
    return statement;
}

} // namespace tolvex::embedded
