#include "database/connection.hpp"

#include "core/errors.hpp"
#include "database/errors.hpp"
#include "database/statement_listener.hpp"

#include <chrono>

namespace tolvex {

namespace {

StatementListener& listener()
{
    static StatementListener one = nullptr;
    return one;
}

// Runs a statement, which gives a value, within the hearing of the listener.
template <class Operation>
auto heard(TextView sql, Operation run)
{
    using Clock = std::chrono::steady_clock;
    if (!listener()) return run();
    const auto start = Clock::now();
    const auto tell = [&](TextView failure) {
        const auto taken = std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - start);
        listener()({sql, taken.count(), failure});
    };
    try {
        auto result = run();
        tell({});
        return result;
    } catch (const Error& error) {
        tell(error.description());
        throw;
    }
}

} // namespace

void listen_to_statements(StatementListener one) { listener() = one; }

void Connection::open() { driver_ = open_driver(connection_string, command_timeout); }

void Connection::close() noexcept { driver_.reset(); }

void Connection::execute(const Text& sql) { execute(sql, {}); }

void Connection::execute(const Text& sql, const std::vector<Value>& parameters)
{
    heard(sql, [&] { return driver().execute(sql, parameters), true; });
}

Recordset Connection::query(const Text& sql)
{
    return heard(sql, [&] { return Recordset(driver().query(sql)); });
}

Recordset Connection::query(const Text& sql, const std::vector<NamedValue>& parameters)
{
    return heard(sql, [&] { return Recordset(driver().query(sql, parameters)); });
}

Recordset Connection::call(const Text& procedure, const std::vector<NamedValue>& parameters)
{
    return heard(procedure, [&] { return Recordset(driver().call(procedure, parameters)); });
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
