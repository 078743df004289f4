// The embedded engine's handles and the one door that its calls go through.
#pragma once

#include "database/driver.hpp"

#include <memory>
#include <sqlite3.h>

namespace tolvex::embedded {

// One open database file. Failures name it and say why and what to do.
class Database
{
public:
    // Opens the file or creates it; the engine reads it only at the first statement. Throws Error.
    explicit Database(Text file);

    const Text& file() const { return file_; }
    sqlite3* handle() const { return handle_.get(); }
    // Throws Error(database_error), with the engine's own text, unless the code says that all went well.
    void check(int code) const;
    // Runs one statement of the engine's own SQL, or several.
    void run(const char* sql);
    // First column of the first row of a query.
    std::string answer(const char* sql);
    bool in_transaction() const { return !sqlite3_get_autocommit(handle()); }

private:
    struct Close
    {
        void operator()(sqlite3* handle) const { sqlite3_close_v2(handle); }
    };

    Text why(int code) const;

    Text file_;
    std::unique_ptr<sqlite3, Close> handle_;
};

// One prepared statement. It keeps the database open for as long as it lives.
class Statement
{
public:
    // Prepares the first statement of the text and takes it off; it does not exist when only blanks are left.
    Statement(std::shared_ptr<const Database> database, std::string_view& sql);

    bool exists() const { return handle_ != nullptr; }
    std::size_t parameter_count() const;
    // Parameters are counted from 0.
    void bind(std::size_t parameter, const Value& value);
    // Runs up to the next row; false at the end.
    bool step();
    std::size_t column_count() const;
    // Name, kind and size: of the declared column or, for an expression, of the current row's value.
    Column column(std::size_t index) const;
    // Value of the current row, as its column's kind.
    Value value(std::size_t index, ColumnKind kind) const;

private:
    struct Finalize
    {
        void operator()(sqlite3_stmt* handle) const { sqlite3_finalize(handle); }
    };

    Text text(int index) const;
    Value stored_value(int index) const;

    std::shared_ptr<const Database> database_;
    std::unique_ptr<sqlite3_stmt, Finalize> handle_;
};

} // namespace tolvex::embedded
