// What a database driver offers to Connection and Recordset. Two exist: ODBC and the embedded database.
#pragma once

#include "database/value.hpp"

#include <memory>
#include <vector>

namespace tolvex {

// The kinds of columns that callers tell apart (list views align and format by them).
enum class ColumnKind
{
    text,
    integer,
    floating,
    money,
    date,
    bit,
    binary
};

struct Column
{
    Text name;
    ColumnKind kind = ColumnKind::text;
    std::size_t size = 0; // defined size in characters or digits; 0 when the driver does not know
};

// A value for "@name" in a statement; the name comes without "@".
struct NamedValue
{
    Text name;
    Value value;
};

// Rows of one query, read forwards once.
class Cursor
{
public:
    virtual ~Cursor() = default;
    virtual const std::vector<Column>& columns() const = 0;
    // Moves to the next row (at first: the first); false at the end.
    virtual bool next() = 0;
    // Value of a column of the current row. Throws Error with the driver's words.
    virtual Value value(std::size_t column) = 0;
};

// One open session with a database. Every failure throws Error(database_error) with the driver's own
// description.
class Driver
{
public:
    virtual ~Driver() = default;
    // Runs a statement or a batch; "?" marks take the parameters in order. Changing no row is no failure.
    virtual void execute(const Text& sql, const std::vector<Value>& parameters = {}) = 0;
    virtual std::unique_ptr<Cursor> query(const Text& sql) = 0;
    // The same with values for its "@name"s, and the rows of a stored procedure called with them.
    virtual std::unique_ptr<Cursor> query(const Text& sql, const std::vector<NamedValue>& parameters) = 0;
    virtual std::unique_ptr<Cursor> call(const Text& procedure,
                                         const std::vector<NamedValue>& parameters) = 0;
    virtual void begin() = 0;
    virtual void commit() = 0;
    virtual void roll_back() = 0;
    virtual bool in_transaction() const = 0;
    // Product, version and driver in words, for a person.
    virtual Text description() = 0;
    // Of an embedded database, absolute; empty on a server.
    virtual Text file() const { return {}; }

    // Between these two, statements need not reach the disk one by one; flush() makes all of them durable.
    virtual void defer_flush() {}
    virtual void flush() {}

    // Creates what the database lacks of a schema that its driver brings along; others bring none.
    virtual void complete_schema() {}
};

// A driver opened by a connection string of the form "uid=…;pwd=…;driver={SQL Server};server=…;database=…".
// The server "sqlite:" means the embedded database in the file named by database.
std::unique_ptr<Driver> open_driver(const Text& connection_string, int timeout_seconds);
std::unique_ptr<Driver> open_odbc(const Text& connection_string, int timeout_seconds);
std::unique_ptr<Driver> open_embedded(const Text& file, int timeout_seconds);

} // namespace tolvex
