// Connection and result sets as every statement of the system uses them, whatever the driver.
#pragma once

#include "database/driver.hpp"

#include <optional>

namespace tolvex {

class UpdatableRecordset;

// Rows of a query, read forwards once. It stands on the first row when it is opened; closes by itself.
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

// One database session. Closed until open(); may be opened again and again.
class Connection
{
public:
    static constexpr int default_timeout = 360;

    Text connection_string;
    int command_timeout = default_timeout; // seconds

    // Throws Error with the driver's description when the database cannot be reached.
    void open();
    void close() noexcept;
    bool is_open() const { return driver_ != nullptr; }

    // Runs a statement. Throws Error with the driver's description; Error 3709 when the connection is closed.
    void execute(const Text& sql);
    Recordset query(const Text& sql);
    // A result set "Select … from TABLE Where …" whose rows can be added to or changed.
    UpdatableRecordset open_updatable(const Text& sql);

    void begin_transaction();
    void commit();
    // Without an open transaction it does nothing.
    void roll_back();

    // Product, version and driver, for a person.
    Text description();

private:
    friend class UpdatableRecordset;
    friend class WriteBurst;
    Driver& driver();

    std::unique_ptr<Driver> driver_;
};

// New or changed row of one table: AddNew or the row found, fields set one by one, then one statement.
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

// While it lives, statements need not reach the disk one by one: finish() (or the end of the scope) makes all
// of them durable at once. It is no transaction: each statement stands for itself, and others see it at once.
class WriteBurst
{
public:
    explicit WriteBurst(Connection& connection);
    ~WriteBurst();
    WriteBurst(const WriteBurst&) = delete;
    WriteBurst& operator=(const WriteBurst&) = delete;
    // Throws Error when the disk does not take it.
    void finish();

private:
    Connection& connection_;
    bool finished_ = false;
};

} // namespace tolvex
