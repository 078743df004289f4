// New or changed row of one table: AddNew or the row found, fields set one by one, then one statement.
#pragma once

#include "database/driver.hpp"

#include <optional>

namespace tolvex {

class Connection;

class UpdatableRecordset
{
public:
    // The first row of the statement is current, if there is one.
    UpdatableRecordset(Connection& connection, const Text& sql);

    bool eof() const { return !current_; }
    Value operator[](TextView column) const;
    // Kind and size of a column of the statement. Throws Error 3265 when there is none of that name.
    const Column& column(TextView name) const;
    void add_new();
    // Sets a column of the new or the current row, anew if it was set before; the name must be a column of
    // the statement (Error 3265). The value is converted to the column's kind: Error 13 when it cannot be, 6
    // when it does not fit.
    void set(TextView column, const Value& value);
    // Sends the row. Throws Error with the driver's description; nothing is then stored.
    void update();

private:
    Connection& connection_;
    Text table_;
    Text condition_;
    std::vector<Column> columns_;
    std::optional<std::vector<Value>> current_;
    std::vector<std::pair<std::size_t, Value>> changes_;
    bool adding_ = false;
};

} // namespace tolvex
