#include "session/session.hpp"

#include "core/numbers.hpp"
#include "database/statement_listener.hpp"
#include "platform/log.hpp"

namespace tolvex {

namespace {

void log_statement(const EndedStatement& statement)
{
    log(u"SQL " + Text(statement.sql) + u" (" + decimal(statement.milliseconds) + u" ms)" +
        (statement.failure.empty() ? Text() : u" ERROR: " + Text(statement.failure)));
}

Session& made_session()
{
    if (log_is_kept()) listen_to_statements(log_statement);
    return *new Session;
}

} // namespace

Session& session()
{
    // Never destroyed: a host may leave its connection open, and a driver must not be called while the
    // process ends.
    static Session& the_session = made_session();
    return the_session;
}

Connection& shared_connection(Session& session)
{
    if (!session.gConexion) session.gConexion = std::make_shared<Connection>();
    return *session.gConexion;
}

} // namespace tolvex
