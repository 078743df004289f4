#include "console/schema_report.hpp"

#include "schema/schema.hpp"

#include <fmt/core.h>

namespace tolvex::console {

bool report_schema(Connection& connection)
{
    const std::vector<Text> missing = missing_from_schema(connection);
    if (missing.empty()) {
        fmt::print("Esquema: completo\n");
        return true;
    }
    fmt::print("Esquema: falta o no se alcanza lo siguiente; las tablas se crean con «tolvex esquema "
               "--crea», lo demás lo dice docs/sql-server.md\n");
    for (const Text& what : missing) fmt::print("  {}\n", to_utf8(what));
    return false;
}

} // namespace tolvex::console
