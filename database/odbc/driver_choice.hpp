// Which installed ODBC driver reaches the SQL Server that a connection string asks for.
#pragma once

#include "tolvex/types.hpp"

#include <vector>

namespace tolvex::odbc {

// The connection string for one of the installed drivers, its password in braces where it needs them. A
// driver that is installed under the name in the string, or any name but "SQL Server", leaves the rest as it
// is. "SQL Server" becomes the newest of the vendor's drivers, else FreeTDS, with the keywords that these
// need to behave like the one named.
Text for_installed_driver(const Text& connection_string, const std::vector<Text>& installed);

} // namespace tolvex::odbc
