#include "console/command.hpp"
#include "console/output.hpp"
#include "console/schema_report.hpp"
#include "schema/schema.hpp"

#include <fmt/core.h>

namespace tolvex::console {

namespace {

class Esquema : public Command
{
public:
    const char* name() const override { return "esquema"; }
    const char* purpose() const override
    {
        return "Escribe las instrucciones que crean las tablas en SQL Server, o completa la base de datos";
    }
    const char* example() const override { return "tolvex esquema --crea --bd tienda.db"; }

    void declare(Options& options) override
    {
        options.flag("--crea", create_, "Crea en la base de datos lo que falte, sin tocar lo que hay");
    }

    bool needs_database() const override { return create_; }

    int run(const Place& place) override
    {
        if (!create_) {
            fmt::print("{}", to_utf8(schema_script()));
            return 0;
        }
        connect_or_create(place);
        create_schema(shared_connection(session()));
        return report_schema(shared_connection(session())) ? 0 : 1;
    }

private:
    bool create_ = false;
};

} // namespace

std::unique_ptr<Command> esquema_command() { return std::make_unique<Esquema>(); }

} // namespace tolvex::console
