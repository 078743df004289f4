// Opening of connections: what a host says of its database, and the connection string made of it.
#pragma once

#include "session/session.hpp"

namespace tolvex {

// As hosts give it; the server "sqlite:" means the embedded database in the file named by database.
struct ConnectionData
{
    Text user, password, database, server;
};

// Connection string of that data. Deliberate: the values go in as they are. A driver gets a password that
// would break the string in braces; a ";" in another value ends it, which hosts use to add keywords.
Text connection_string(const ConnectionData& data);

// Opens a connection with that data, closing it first if it is open. Throws Error with the driver's
// description.
void open_connection(Connection& connection, const ConnectionData& data);
// Date literals are year-month-day from then on, whatever the login's language says.
void read_dates_as_year_month_day(Connection& connection);

// Keeps the data for the next opening of the shared connection, which stays as it is until then.
void keep_connection_data(Session& session, const ConnectionData& data);
// Opens the shared connection with the data kept, dates as year-month-day.
void open_shared_connection(Session& session);
// Opens a connection of its own and makes it the shared one, which stays as it was when the opening fails.
// Deliberate: dates are read as the login's language says.
void replace_shared_connection(Session& session, const ConnectionData& data);

} // namespace tolvex
