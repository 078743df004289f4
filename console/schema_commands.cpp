#include "console/commands.hpp"

#include "core/text.hpp"
#include "schema/schema.hpp"
#include "session/session.hpp"

#include <fmt/core.h>

namespace tolvex::console {

namespace {

bool report_missing()
{
    const std::vector<Text> missing = missing_from_schema(shared_connection(session()));
    if (missing.empty()) {
        fmt::print("Esquema: completo\n");
        return true;
    }
    fmt::print("Esquema: falta o no se alcanza lo siguiente; las tablas se crean con «tolvex esquema "
               "--crea», lo demás lo dice docs/sql-server.md\n");
    for (const Text& what : missing) fmt::print("  {}\n", to_utf8(what));
    return false;
}

} // namespace

int esquema(const Place& place, bool create)
{
    if (!create) {
        fmt::print("{}", to_utf8(schema_script()));
        return 0;
    }
    connect(place);
    create_schema(shared_connection(session()));
    return report_missing() ? 0 : 1;
}

int conexion(const Place& place)
{
    connect(place);
    fmt::print("Servidor: {}\nBase de datos: {}\n{}\n", place.server, place.database,
               to_utf8(shared_connection(session()).description()));
    return report_missing() ? 0 : 1;
}

} // namespace tolvex::console
