#include "classes/call.hpp"
#include "session/opening.hpp"
#include "tolvex/classes.hpp"

namespace tolvex {

void ConfigFE::SetDatosConexion(const Text& UserBd, const Text& PswBd, const Text& Bd, const Text& ServerBd)
{
    keep_connection_data(begin_call(), {UserBd, PswBd, Bd, ServerBd});
}

bool ConfigFE::AbrirConexion()
{
    open_shared_connection(begin_call());
    return true;
}

bool ConfigFE::CierraConexion()
{
    shared_connection(begin_call()).close();
    return true;
}

} // namespace tolvex
