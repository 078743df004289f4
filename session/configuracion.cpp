#include "session/configuracion.hpp"

namespace tolvex {

Value fgValorCampo(Session& session, const Text& column, const Text& sql)
{
    const Recordset rows = shared_connection(session).query(sql);
    return rows.eof() ? Value() : rows[column];
}

Text fgSeleccionaCarpeta(WindowHandle owner, const Text& title) { return choose_folder(owner, title); }

} // namespace tolvex
