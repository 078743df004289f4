// An ODBC driver whose server is the embedded database: what is sent to a SQL Server reaches it through the
// driver manager and is answered from the file that "database" names. It offers the calls that the system
// makes, so that faults between a station and its server can be tried where there is no server.
#include "core/errors.hpp"
#include "core/text.hpp"
#include "database/connection_keywords.hpp"
#include "database/driver.hpp"
#include "database/odbc/api.hpp"

#include <algorithm>

namespace {

using namespace tolvex;

struct Parameter
{
    SQLSMALLINT c_type;
    const void* value;
    const SQLLEN* length;
};

struct Handle
{
    Text error;
};

struct Session : Handle
{
    std::unique_ptr<Driver> database;
};

struct Statement : Handle
{
    Session* session;
    std::vector<Parameter> parameters;
    std::unique_ptr<Cursor> rows;
    SQLUSMALLINT column = 0;
    std::size_t given = 0; // of that column's text, so far
};

// Runs an operation; what went wrong is kept for SQLGetDiagRec.
template <class Operation>
SQLRETURN tried(SQLHANDLE handle, Operation operation)
{
    Text& error = static_cast<Handle*>(handle)->error;
    error.clear();
    try {
        return operation();
    } catch (const std::exception& thrown) {
        error = words_of(thrown);
        return SQL_ERROR;
    }
}

Text text_of(const SQLWCHAR* text, SQLINTEGER length)
{
    const auto* units = reinterpret_cast<const char16_t*>(text);
    return length == SQL_NTS ? Text(units) : Text(units, static_cast<std::size_t>(length));
}

// The start of a text in a caller's buffer; `room` and the result count bytes.
SQLLEN put(TextView text, SQLPOINTER buffer, SQLLEN room)
{
    const auto fitting = std::min(text.size(), static_cast<std::size_t>(std::max<SQLLEN>(room / 2 - 1, 0)));
    if (buffer && room >= 2) {
        auto* units = static_cast<char16_t*>(buffer);
        std::copy_n(text.begin(), fitting, units);
        units[fitting] = 0;
    }
    return static_cast<SQLLEN>(text.size() * 2);
}

// --- statements ----------------------------------------------------------------------------------------

Value value_of(const Parameter& parameter)
{
    if (parameter.length && *parameter.length == SQL_NULL_DATA) return {};
    const auto bytes = parameter.length ? static_cast<std::size_t>(*parameter.length) : 0;
    switch (parameter.c_type) {
    case SQL_C_BIT:
        return *static_cast<const SQLCHAR*>(parameter.value) != 0;
    case SQL_C_SBIGINT:
        return std::int64_t{*static_cast<const SQLBIGINT*>(parameter.value)};
    case SQL_C_DOUBLE:
        return *static_cast<const SQLDOUBLE*>(parameter.value);
    case SQL_C_CHAR:
        return to_currency(to_text({static_cast<const char*>(parameter.value), bytes}));
    case SQL_C_TYPE_TIMESTAMP:
        return odbc::date_of(*static_cast<const SQL_TIMESTAMP_STRUCT*>(parameter.value));
    default:
        return Text(static_cast<const char16_t*>(parameter.value), bytes / 2);
    }
}

std::vector<Value> values_of(const Statement& statement)
{
    std::vector<Value> values;
    for (const Parameter& parameter : statement.parameters) values.push_back(value_of(parameter));
    return values;
}

// "exec sp_executesql N'…', N'@a int, …', @a = ?, …": the statement, and its values by their names.
std::unique_ptr<Cursor> execute_prepared(const Statement& statement, const Text& sql)
{
    const auto begin = sql.find(u'\'') + 1, end = sql.find(u"', N'@", begin);
    if (end == Text::npos) throw invalid_call(u"instrucción desconocida: " + sql);
    std::vector<NamedValue> named;
    auto place = sql.find(u"', @", end + 1) + 1; // past the declarations
    for (const Value& value : values_of(statement)) {
        place = sql.find(u'@', place) + 1;
        named.push_back({sql.substr(place, sql.find(u' ', place) - place), value});
    }
    return statement.session->database->query(replace_all(sql.substr(begin, end - begin), u"''", u"'"),
                                              named);
}

bool begins_with(const Text& sql, TextView word)
{
    return equal_ignoring_case(TextView(trim(sql)).substr(0, word.size()), word);
}

SQLRETURN execute(Statement& statement, const Text& sql)
{
    statement.rows.reset();
    if (begins_with(sql, u"exec sp_executesql"))
        statement.rows = execute_prepared(statement, sql);
    else if (begins_with(sql, u"select"))
        statement.rows = statement.session->database->query(sql);
    else
        statement.session->database->execute(sql, values_of(statement));
    return SQL_SUCCESS;
}

// --- rows ----------------------------------------------------------------------------------------------

SQLSMALLINT type_of(ColumnKind kind)
{
    switch (kind) {
    case ColumnKind::integer:
        return SQL_BIGINT;
    case ColumnKind::floating:
        return SQL_DOUBLE;
    case ColumnKind::money:
        return SQL_DECIMAL;
    case ColumnKind::date:
        return SQL_TYPE_TIMESTAMP;
    case ColumnKind::bit:
        return SQL_BIT;
    default:
        return SQL_WVARCHAR;
    }
}

// Piece by piece, where the buffer is smaller than the text.
SQLRETURN give_text(Statement& statement, const Text& text, SQLPOINTER buffer, SQLLEN room, SQLLEN* length)
{
    *length = put(TextView(text).substr(statement.given), buffer, room);
    const bool all = *length < room;
    statement.given = all ? text.size() : statement.given + static_cast<std::size_t>(room) / 2 - 1;
    return all ? SQL_SUCCESS : SQL_SUCCESS_WITH_INFO;
}

SQLRETURN give(Statement& statement, const Value& value, SQLSMALLINT c_type, SQLPOINTER buffer, SQLLEN room,
               SQLLEN* length)
{
    if (value.is_null()) {
        *length = SQL_NULL_DATA;
        return SQL_SUCCESS;
    }
    *length = room;
    switch (c_type) {
    case SQL_C_BIT:
        *static_cast<SQLCHAR*>(buffer) = value.boolean();
        return SQL_SUCCESS;
    case SQL_C_SBIGINT:
        *static_cast<SQLBIGINT*>(buffer) = static_cast<SQLBIGINT>(value.number());
        return SQL_SUCCESS;
    case SQL_C_DOUBLE:
        *static_cast<SQLDOUBLE*>(buffer) = value.number();
        return SQL_SUCCESS;
    case SQL_C_TYPE_TIMESTAMP:
        *static_cast<SQL_TIMESTAMP_STRUCT*>(buffer) = odbc::timestamp(value.date());
        return SQL_SUCCESS;
    default:
        return give_text(statement, value.text(), buffer, room, length);
    }
}

Statement& statement_of(SQLHSTMT handle) { return static_cast<Statement&>(*static_cast<Handle*>(handle)); }
Session& session_of(SQLHDBC handle) { return static_cast<Session&>(*static_cast<Handle*>(handle)); }
const Column& column_of(SQLHSTMT handle, SQLUSMALLINT number)
{
    return statement_of(handle).rows->columns().at(number - 1u);
}

} // namespace

// --- what the driver manager calls ---------------------------------------------------------------------

#define ODBC extern "C" __attribute__((visibility("default"))) SQLRETURN

ODBC SQLAllocHandle(SQLSMALLINT kind, SQLHANDLE parent, SQLHANDLE* handle)
{
    if (kind == SQL_HANDLE_STMT) {
        auto* statement = new Statement;
        statement->session = static_cast<Session*>(parent);
        *handle = static_cast<Handle*>(statement);
    } else
        *handle = static_cast<Handle*>(new Session);
    return SQL_SUCCESS;
}

ODBC SQLFreeHandle(SQLSMALLINT kind, SQLHANDLE handle)
{
    if (kind == SQL_HANDLE_STMT)
        delete &statement_of(handle);
    else
        delete &session_of(handle);
    return SQL_SUCCESS;
}

ODBC SQLSetEnvAttr(SQLHENV, SQLINTEGER, SQLPOINTER, SQLINTEGER) { return SQL_SUCCESS; }

ODBC SQLSetStmtAttrW(SQLHSTMT, SQLINTEGER, SQLPOINTER, SQLINTEGER) { return SQL_SUCCESS; }

ODBC SQLSetConnectAttrW(SQLHDBC session, SQLINTEGER which, SQLPOINTER value, SQLINTEGER)
{
    return tried(session, [&] {
        if (which == SQL_ATTR_AUTOCOMMIT && !value) session_of(session).database->begin();
        return SQL_SUCCESS;
    });
}

ODBC SQLDriverConnectW(SQLHDBC session, SQLHWND, SQLWCHAR* given, SQLSMALLINT length, SQLWCHAR*, SQLSMALLINT,
                       SQLSMALLINT*, SQLUSMALLINT)
{
    return tried(session, [&] {
        constexpr int seconds = 10;
        session_of(session).database = open_embedded(keyword(text_of(given, length), u"database"), seconds);
        return SQL_SUCCESS;
    });
}

ODBC SQLDisconnect(SQLHDBC session)
{
    session_of(session).database.reset();
    return SQL_SUCCESS;
}

ODBC SQLEndTran(SQLSMALLINT, SQLHANDLE session, SQLSMALLINT how)
{
    return tried(session, [&] {
        Driver& database = *session_of(session).database;
        if (!database.in_transaction()) return SQL_SUCCESS;
        how == SQL_COMMIT ? database.commit() : database.roll_back();
        return SQL_SUCCESS;
    });
}

ODBC SQLGetInfoW(SQLHDBC, SQLUSMALLINT which, SQLPOINTER buffer, SQLSMALLINT room, SQLSMALLINT* length)
{
    const auto bytes = put(which == SQL_DRIVER_ODBC_VER ? u"03.00" : u"", buffer, room);
    if (length) *length = static_cast<SQLSMALLINT>(bytes);
    return SQL_SUCCESS;
}

ODBC SQLGetDiagRecW(SQLSMALLINT, SQLHANDLE handle, SQLSMALLINT number, SQLWCHAR* state, SQLINTEGER* native,
                    SQLWCHAR* message, SQLSMALLINT room, SQLSMALLINT* length)
{
    const Text& error = static_cast<Handle*>(handle)->error;
    if (number > 1 || error.empty()) return SQL_NO_DATA;
    put(u"HY000", state, 12);
    *native = 0;
    *length = static_cast<SQLSMALLINT>(put(error, message, room * 2) / 2);
    return SQL_SUCCESS;
}

// Without it the manager does not ask for the record either.
ODBC SQLGetDiagFieldW(SQLSMALLINT, SQLHANDLE, SQLSMALLINT, SQLSMALLINT, SQLPOINTER, SQLSMALLINT, SQLSMALLINT*)
{
    return SQL_NO_DATA;
}

ODBC SQLBindParameter(SQLHSTMT handle, SQLUSMALLINT, SQLSMALLINT, SQLSMALLINT c_type, SQLSMALLINT, SQLULEN,
                      SQLSMALLINT, SQLPOINTER value, SQLLEN, SQLLEN* length)
{
    statement_of(handle).parameters.push_back({c_type, value, length});
    return SQL_SUCCESS;
}

ODBC SQLExecDirectW(SQLHSTMT handle, SQLWCHAR* sql, SQLINTEGER length)
{
    return tried(handle, [&] { return execute(statement_of(handle), text_of(sql, length)); });
}

ODBC SQLNumResultCols(SQLHSTMT handle, SQLSMALLINT* count)
{
    const auto& rows = statement_of(handle).rows;
    *count = rows ? static_cast<SQLSMALLINT>(rows->columns().size()) : 0;
    return SQL_SUCCESS;
}

ODBC SQLDescribeColW(SQLHSTMT handle, SQLUSMALLINT number, SQLWCHAR* name, SQLSMALLINT room,
                     SQLSMALLINT* length, SQLSMALLINT* type, SQLULEN* size, SQLSMALLINT* digits,
                     SQLSMALLINT* nullable)
{
    const Column& column = column_of(handle, number);
    *length = static_cast<SQLSMALLINT>(put(column.name, name, room * 2) / 2);
    *type = type_of(column.kind);
    *size = column.size;
    *digits = 0;
    *nullable = SQL_NULLABLE_UNKNOWN;
    return SQL_SUCCESS;
}

ODBC SQLColAttributeW(SQLHSTMT, SQLUSMALLINT, SQLUSMALLINT, SQLPOINTER name, SQLSMALLINT room,
                      SQLSMALLINT* length, SQLLEN*)
{
    *length = static_cast<SQLSMALLINT>(put(u"nvarchar", name, room));
    return SQL_SUCCESS;
}

ODBC SQLFetch(SQLHSTMT handle)
{
    return tried(handle, [&] {
        statement_of(handle).column = 0;
        return statement_of(handle).rows->next() ? SQL_SUCCESS : SQL_NO_DATA;
    });
}

ODBC SQLGetData(SQLHSTMT handle, SQLUSMALLINT number, SQLSMALLINT c_type, SQLPOINTER buffer, SQLLEN room,
                SQLLEN* length)
{
    return tried(handle, [&] {
        Statement& statement = statement_of(handle);
        if (std::exchange(statement.column, number) != number) statement.given = 0;
        return give(statement, statement.rows->value(number - 1u), c_type, buffer, room, length);
    });
}

ODBC SQLMoreResults(SQLHSTMT) { return SQL_NO_DATA; }
