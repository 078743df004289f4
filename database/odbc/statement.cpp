#include "database/odbc/statement.hpp"

namespace tolvex::odbc {

Statement::Statement(SQLHANDLE connection, int timeout_seconds) : Handle(SQL_HANDLE_DBC, connection)
{
    // A driver that knows no time-out, or looks for no escapes in a text anyway, works without: results not
    // checked.
    SQLSetStmtAttrW(get(), SQL_ATTR_QUERY_TIMEOUT, number_attribute(timeout_seconds), SQL_IS_UINTEGER);
    SQLSetStmtAttrW(get(), SQL_ATTR_NOSCAN, number_attribute(SQL_NOSCAN_ON), SQL_IS_UINTEGER);
}

void Statement::execute(const Text& sql) const
{
    check(SQLExecDirectW(get(), wide(sql), static_cast<SQLINTEGER>(sql.size())));
}

bool Statement::next_result() const
{
    const SQLRETURN result = SQLMoreResults(get());
    check(result);
    return result != SQL_NO_DATA;
}

void Statement::drain() const
{
    while (next_result()) continue;
}

int Statement::column_count() const
{
    SQLSMALLINT count = 0;
    check(SQLNumResultCols(get(), &count));
    return count;
}

} // namespace tolvex::odbc
