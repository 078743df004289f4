// One prepared statement of the embedded database: its parameters and its rows.
#pragma once

#include "database/driver.hpp"
#include "database/embedded/database.hpp"

namespace tolvex::embedded {

// It keeps the database open for as long as it lives.
class Statement
{
public:
    // Prepares the first statement of the text and takes it off; it does not exist when only blanks are left.
    Statement(std::shared_ptr<const Database> database, std::string_view& sql);

    bool exists() const { return handle_ != nullptr; }
    std::size_t parameter_count() const;
    // Parameters are counted from 0.
    void bind(std::size_t parameter, const Value& value);
    // Its name with the "@" before it; empty for "?".
    Text parameter_name(std::size_t parameter) const;
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
    Bytes bytes(int index) const;
    Value stored_value(int index) const;

    std::shared_ptr<const Database> database_;
    std::unique_ptr<sqlite3_stmt, Finalize> handle_;
};

} // namespace tolvex::embedded
