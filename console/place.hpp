// Where the documents are, as the user says it on the command line or in the environment.
#pragma once

#include "session/opening.hpp"

#include <cstdint>
#include <string>

namespace tolvex::console {

// In UTF-8; the server "sqlite:" means the embedded database in the file named by database.
struct Place
{
    std::string server = "sqlite:", database = "tolvex.db", user, password;
};

// The variable of the environment that a password may come in.
inline constexpr const char* password_variable = "TOLVEX_CLAVE";

bool is_embedded(const Place& place);
ConnectionData connection_data(const Place& place);

// As the user says it again, but for the password.
std::string options_of(const Place& place);

// Opens the shared connection. Throws Error with the driver's description, Error 53 for an embedded database
// whose file is not there.
void connect(const Place& place);
// The same for what makes a shop's first data: a missing file is made.
void connect_or_create(const Place& place);
// The same, for a company that must be there: else throws Error 5 with its number.
void connect(const Place& place, std::int16_t company);
void disconnect();

} // namespace tolvex::console
