// What statements may do on an open embedded database: read and change rows of ordinary tables. They are put
// together from what people type, so nothing else gets through: no other files, no settings, no change of the
// schema.
#pragma once

#include <sqlite3.h>

namespace tolvex::embedded {

struct Rights
{
    bool unrestricted = false; // while the driver's own statements run
    bool refused = false;      // a statement asked for more
};

// Restricts every statement that the connection prepares. The rights must outlive it. The engine's own code,
// or SQLITE_OK.
int restrict_to(Rights& rights, sqlite3* connection);

} // namespace tolvex::embedded
