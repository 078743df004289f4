// Rows of a query, whatever the driver.
#pragma once

#include "database/driver.hpp"

namespace tolvex {

// Read forwards once. It stands on the first row when it is opened; closes by itself.
class Recordset
{
public:
    explicit Recordset(std::unique_ptr<Cursor> cursor);

    bool eof() const { return !on_row_; }
    void move_next();
    // Value of a column by its name, in any letter case. Throws Error 3265 when there is no such column, 3021
    // when there is no current row.
    Value operator[](TextView column) const;
    Value value(std::size_t column) const;
    const std::vector<Column>& columns() const { return cursor_->columns(); }

private:
    std::unique_ptr<Cursor> cursor_;
    bool on_row_ = false;
};

// Place of a column by its name, in any letter case. Throws Error 3265 when there is none.
std::size_t position_of(const std::vector<Column>& columns, TextView name);

} // namespace tolvex
