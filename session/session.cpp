#include "session/session.hpp"

namespace tolvex {

Session& session()
{
    static Session the_session;
    return the_session;
}

Connection& shared_connection(Session& session)
{
    if (!session.gConexion) session.gConexion = std::make_shared<Connection>();
    return *session.gConexion;
}

} // namespace tolvex
