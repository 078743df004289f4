// Helpers around the shared connection that every room above uses.
#pragma once

#include "platform/choosers.hpp"
#include "session/session.hpp"

namespace tolvex {

// Opens a connection with that data, closing it first if it is open; date literals are year-month-day from
// then on. Throws Error with the driver's description.
void open_connection(Connection& connection, const Text& user, const Text& password, const Text& database,
                     const Text& server);

// Connection string of a user, password, database and server. Deliberate: the values go in as they are, so a
// ";" in one of them breaks the string.
Text connection_string(const Text& user, const Text& password, const Text& database, const Text& server);

// Value of the named column of the query's first row; Null when there is no row.
Value fgValorCampo(Session& session, const Text& column, const Text& sql);

// Folder that the user picks in the system's folder browser; empty when he cancels or on any error.
Text fgSeleccionaCarpeta(WindowHandle owner, const Text& title);

} // namespace tolvex
