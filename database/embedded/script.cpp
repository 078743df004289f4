#include "database/embedded/script.hpp"

#include "core/errors.hpp"
#include "database/embedded/tsql/rewriter.hpp"

namespace tolvex::embedded {

namespace {

std::string engine_sql(TextView sql)
{
    if (sql.find(u'\0') != TextView::npos)
        throw Error(database_error, u"La instrucción SQL contiene un carácter nulo");
    return to_utf8(to_sqlite(sql));
}

} // namespace

Script::Script(std::shared_ptr<const Database> database, TextView sql)
    : database_(std::move(database)), text_(engine_sql(sql)), rest_(text_)
{}

std::optional<Statement> Script::next()
{
    if (rest_.empty()) return {};
    Statement statement(database_, rest_);
    if (!statement.exists()) return {};
    return statement;
}

} // namespace tolvex::embedded
