#include "session/configuracion.hpp"
#include "tolvex/tolvex.hpp"

namespace tolvex {

void ConfigFE::SetDatosConexion(const Text& UserBd, const Text& PswBd, const Text& Bd, const Text& ServerBd)
{
    Session& current = session();
    current.gUserBd = UserBd;
    current.gPswBd = PswBd;
    current.gBd = Bd;
    current.gServerBd = ServerBd;
}

bool ConfigFE::AbrirConexion()
{
    Session& current = session();
    Connection& connection = shared_connection(current);
    if (connection.is_open()) connection.close();
    connection.connection_string =
        connection_string(current.gUserBd, current.gPswBd, current.gBd, current.gServerBd);
    connection.command_timeout = Connection::default_timeout;
    connection.open();
    connection.execute(u"set dateformat ymd"); // every later date literal is year-month-day
    return true;
}

bool ConfigFE::CierraConexion()
{
    shared_connection(session()).close();
    return true;
}

} // namespace tolvex
