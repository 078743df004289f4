// Where the documents are, as the user says it on the command line or in the environment.
#pragma once

#include "session/opening.hpp"

#include <string>

namespace tolvex::console {

// In UTF-8; the server "sqlite:" means the embedded database in the file named by database.
struct Place
{
    std::string server = "sqlite:", database = "tolvex.db", user, password;
};

ConnectionData connection_data(const Place& place);

// Opens the shared connection. Throws Error with the driver's description.
void connect(const Place& place);
void disconnect();

} // namespace tolvex::console
