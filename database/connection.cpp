#include "database/connection.hpp"

#include "core/errors.hpp"
#include "database/errors.hpp"

namespace tolvex {

void Connection::open() { driver_ = open_driver(connection_string, command_timeout); }

void Connection::close() noexcept { driver_.reset(); }

void Connection::execute(const Text& sql) { driver().execute(sql); }

Recordset Connection::query(const Text& sql) { return Recordset(driver().query(sql)); }

Recordset Connection::query(const Text& sql, const std::vector<NamedValue>& parameters)
{
    return Recordset(driver().query(sql, parameters));
}

Recordset Connection::call(const Text& procedure, const std::vector<NamedValue>& parameters)
{
    return Recordset(driver().call(procedure, parameters));
}

UpdatableRecordset Connection::open_updatable(const Text& sql) { return UpdatableRecordset(*this, sql); }

void Connection::begin_transaction() { driver().begin(); }

void Connection::commit() { driver().commit(); }

void Connection::roll_back()
{
    if (driver().in_transaction()) driver().roll_back();
}

Text Connection::description() { return driver().description(); }

Text Connection::file() { return driver().file(); }

void Connection::complete_schema() { driver().complete_schema(); }

Driver& Connection::driver()
{
    if (!driver_) throw connection_closed();
    return *driver_;
}

WriteBurst::WriteBurst(Connection& connection) : connection_(connection)
{
    connection_.driver().defer_flush();
}

WriteBurst::~WriteBurst()
{
    if (!finished_) quietly([&] { finish(); });
}

void WriteBurst::finish()
{
    finished_ = true;
    if (connection_.is_open()) connection_.driver().flush();
}

} // namespace tolvex
