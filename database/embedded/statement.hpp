// One statement of the embedded database, ready to run: its parameters and its rows.
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
    // Runs one that stays prepared, which is idle again afterwards; the literals are values of its shape.
    Statement(std::shared_ptr<const Database> database, PreparedStatement& kept, std::vector<Value> literals);

    bool exists() const { return handle_ != nullptr; }
    // Where it stays prepared; null for one that does not.
    const PreparedStatement* kept() const { return handle_.get_deleter().kept; }
    // How many the caller has to bind.
    std::size_t parameter_count() const;
    // Parameters are counted from 0. A value that is lent, not copied, must outlive the statement.
    void bind(std::size_t parameter, const Value& value);
    void lend(std::size_t parameter, const Value& value);
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
    struct Ending
    {
        PreparedStatement* kept; // null for one that goes when it is done
        void operator()(sqlite3_stmt* handle) const;
    };

    Text text(int index) const;
    Bytes bytes(int index) const;
    Value stored_value(int index) const;

    std::shared_ptr<const Database> database_;
    std::vector<Value> literals_; // lent already
    std::unique_ptr<sqlite3_stmt, Ending> handle_;
};

} // namespace tolvex::embedded
