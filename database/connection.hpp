// A connection as every statement of the system uses it, whatever the driver.
#pragma once

#include "database/recordset.hpp"
#include "database/updatable_recordset.hpp"

namespace tolvex {

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
    // The same with values for its "@name"s, and the rows of a stored procedure called with them.
    Recordset query(const Text& sql, const std::vector<NamedValue>& parameters);
    Recordset call(const Text& procedure, const std::vector<NamedValue>& parameters);
    // A result set "Select … from TABLE Where …" whose rows can be added to or changed.
    UpdatableRecordset open_updatable(const Text& sql);

    void begin_transaction();
    void commit();
    // Without an open transaction it does nothing.
    void roll_back();

    // Product, version and driver, for a person.
    Text description();
    // The file of an embedded database, absolute; empty on a server.
    Text file();
    // Creates what an embedded database lacks of its schema, rows untouched; a server's is schema/'s
    // business.
    void complete_schema();

private:
    friend class UpdatableRecordset;
    friend class WriteBurst;
    void execute(const Text& sql, const std::vector<Value>& parameters);
    Driver& driver();

    std::unique_ptr<Driver> driver_;
};

// While it lives, statements need not reach the disk one by one: finish() (or the end of the scope) makes all
// of them durable at once. It is no transaction: each statement stands for itself, and others see it at the
// latest when one of another kind follows.
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
