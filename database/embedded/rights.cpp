#include "database/embedded/rights.hpp"

#include <string_view>

namespace tolvex::embedded {

namespace {

// The schema itself, the numbers handed out, statistics.
bool is_the_engines_own(std::string_view table) { return table.starts_with("sqlite_"); }

bool reaches_outside(std::string_view function)
{
    return function == "load_extension" || function == "fts3_tokenizer";
}

bool is_allowed(int action, const char* first, const char* second)
{
    switch (action) {
    case SQLITE_SELECT:
    case SQLITE_READ:
    case SQLITE_RECURSIVE:
    case SQLITE_TRANSACTION:
    case SQLITE_SAVEPOINT:
        return true;
    case SQLITE_INSERT:
    case SQLITE_UPDATE:
    case SQLITE_DELETE:
        return !is_the_engines_own(first);
    case SQLITE_FUNCTION:
        return !reaches_outside(second);
    }
    return false;
}

int judge(void* rights, int action, const char* first, const char* second, const char*, const char*)
{
    auto& given = *static_cast<Rights*>(rights);
    if (given.unrestricted || is_allowed(action, first, second)) return SQLITE_OK;
    given.refused = true;
    return SQLITE_DENY;
}

} // namespace

int restrict_to(Rights& rights, sqlite3* connection)
{
    int code = sqlite3_db_config(connection, SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr);
    // What a view or a trigger of the file calls has no effect outside of its statement.
    if (code == SQLITE_OK) code = sqlite3_db_config(connection, SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0, nullptr);
    return code == SQLITE_OK ? sqlite3_set_authorizer(connection, judge, &rights) : code;
}

} // namespace tolvex::embedded
