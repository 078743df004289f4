#include "session/configuracion.hpp"

#include "core/errors.hpp"

namespace tolvex {

Value fgValorCampo(Session& session, const Text& column, const Text& sql)
{
    const Recordset rows = shared_connection(session).query(sql);
    return rows.eof() ? Value() : rows[column];
}

Text fgSeleccionaCarpeta(WindowHandle owner, const Text& title)
{
    return trapping(Text(), [&] { return toolkit().choose_folder(owner, title); });
}

} // namespace tolvex
