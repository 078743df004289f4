#include "support/schema_change.hpp"

#include "core/errors.hpp"
#include "database/connection_keywords.hpp"

#include <sqlite3.h>

namespace tolvex::testing {

std::string in_sqlite(const Text& file, const std::string& sql)
{
    sqlite3* database = nullptr;
    sqlite3_open(to_utf8(file).c_str(), &database);
    std::string answer;
    const auto keep = [](void* kept, int count, char** values, char**) {
        auto& first = *static_cast<std::string*>(kept);
        if (first.empty() && count > 0 && values[0]) first = values[0];
        return 0;
    };
    const int code = sqlite3_exec(database, sql.c_str(), keep, &answer, nullptr);
    const std::string words = sqlite3_errmsg(database);
    sqlite3_close(database);
    if (code != SQLITE_OK) throw Error(database_error, to_text(words + ": " + sql));
    return answer;
}

void change_schema(Connection& connection, const Text& sql)
{
    if (!asks_for_embedded(connection.connection_string)) return connection.execute(sql);
    in_sqlite(keyword(connection.connection_string, u"database"), to_utf8(sql));
}

} // namespace tolvex::testing
