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
    open_connection(shared_connection(current), current.gUserBd, current.gPswBd, current.gBd,
                    current.gServerBd);
    return true;
}

bool ConfigFE::CierraConexion()
{
    shared_connection(session()).close();
    return true;
}

} // namespace tolvex
