#include "session/session.hpp"

namespace tolvex {

Session& session()
{
    // Never destroyed: a host may leave its connection open, and a driver must not be called while the
    // process ends.
    static Session& the_session = *new Session;
    return the_session;
}

Connection& shared_connection(Session& session)
{
    if (!session.gConexion) session.gConexion = std::make_shared<Connection>();
    return *session.gConexion;
}

} // namespace tolvex
