// The values of a statement's "?" marks, bound in the types that every SQL Server driver takes.
#pragma once

#include "database/odbc/statement.hpp"
#include "database/value.hpp"

#include <deque>
#include <vector>

namespace tolvex::odbc {

// Must outlive the execution of the statement: the driver reads the values from here.
class Parameters
{
public:
    // Throws Error with the driver's words, Error 6 for a date outside the years 100 to 9999.
    Parameters(const Statement& statement, const std::vector<Value>& values);

private:
    struct Bound
    {
        SQLSMALLINT c_type = SQL_C_WCHAR;
        SQLSMALLINT sql_type = SQL_WVARCHAR;
        SQLULEN size = 1;
        SQLSMALLINT digits = 0;
        SQLLEN length = 0;          // in bytes, or SQL_NULL_DATA
        SQLPOINTER value = nullptr; // one of the following
        SQLCHAR bit = 0;
        SQLBIGINT number = 0;
        SQLDOUBLE floating = 0;
        SQL_TIMESTAMP_STRUCT moment{};
        std::string bytes;
        Text text;
    };
    struct Binder;

    std::deque<Bound> bound_; // never moves what it holds
};

} // namespace tolvex::odbc
