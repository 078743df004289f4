#include "console/command.hpp"
#include "console/schema_report.hpp"

#include <fmt/core.h>

namespace tolvex::console {

namespace {

class Conexion : public Command
{
public:
    const char* name() const override { return "conexion"; }
    const char* purpose() const override
    {
        return "Dice qué base de datos se alcanzó y si su esquema está completo";
    }
    const char* example() const override
    {
        return "tolvex conexion --servidor caja,1433 --bd ventas --usuario tienda";
    }

    int run(const Place& place) override
    {
        connect(place);
        Connection& connection = shared_connection(session());
        fmt::print("Servidor: {}\nBase de datos: {}\n{}\n", place.server, place.database,
                   to_utf8(connection.description()));
        return report_schema(connection) ? 0 : 1;
    }
};

} // namespace

std::unique_ptr<Command> conexion_command() { return std::make_unique<Conexion>(); }

} // namespace tolvex::console
