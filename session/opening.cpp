#include "session/opening.hpp"

namespace tolvex {

Text connection_string(const ConnectionData& data)
{
    return u"uid=" + data.user + u";pwd=" + data.password + u";driver={SQL Server};server=" + data.server +
           u";database=" + data.database;
}

void open_connection(Connection& connection, const ConnectionData& data)
{
    if (connection.is_open()) connection.close();
    connection.connection_string = connection_string(data);
    connection.command_timeout = Connection::default_timeout;
    connection.open();
}

void read_dates_as_year_month_day(Connection& connection) { connection.execute(u"set dateformat ymd"); }

void keep_connection_data(Session& session, const ConnectionData& data)
{
    session.gUserBd = data.user;
    session.gPswBd = data.password;
    session.gBd = data.database;
    session.gServerBd = data.server;
}

void open_shared_connection(Session& session)
{
    Connection& connection = shared_connection(session);
    open_connection(connection, {session.gUserBd, session.gPswBd, session.gBd, session.gServerBd});
    read_dates_as_year_month_day(connection);
}

void replace_shared_connection(Session& session, const ConnectionData& data)
{
    auto connection = std::make_shared<Connection>();
    open_connection(*connection, data);
    session.gConexion = connection;
}

} // namespace tolvex
