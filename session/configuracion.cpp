#include "session/configuracion.hpp"

namespace tolvex {

void open_connection(Connection& connection, const Text& user, const Text& password, const Text& database,
                     const Text& server)
{
    if (connection.is_open()) connection.close();
    connection.connection_string = connection_string(user, password, database, server);
    connection.command_timeout = Connection::default_timeout;
    connection.open();
    connection.execute(u"set dateformat ymd");
}

Text connection_string(const Text& user, const Text& password, const Text& database, const Text& server)
{
    return u"uid=" + user + u";pwd=" + password + u";driver={SQL Server};server=" + server + u";database=" +
           database;
}

Value fgValorCampo(Session& session, const Text& column, const Text& sql)
{
    const Recordset rows = shared_connection(session).query(sql);
    return rows.eof() ? Value() : rows[column];
}

Text fgSeleccionaCarpeta(WindowHandle owner, const Text& title) { return choose_folder(owner, title); }

} // namespace tolvex
