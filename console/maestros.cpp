#include "console/command.hpp"
#include "console/master_data/registration.hpp"
#include "platform/files.hpp"

namespace tolvex::console {

namespace {

class Maestros : public Command
{
public:
    const char* name() const override { return "maestros"; }
    const char* purpose() const override
    {
        return "Registra empresas, certificados, sucursales y folios de un archivo TOML";
    }
    const char* example() const override { return "tolvex maestros tienda.toml --bd tienda.db"; }

    void declare(Options& options) override
    {
        options.argument("ARCHIVO", file_, "Archivo TOML (vea docs/maestros.md)");
    }

    int run(const Place& place) override
    {
        const Text file = files::absolute_path(to_text(file_));
        const std::vector<CompanyEntry> companies = entries_in(files::read(file));
        connect_or_create(place);
        register_companies(companies, file);
        return 0;
    }

private:
    std::string file_;
};

} // namespace

std::unique_ptr<Command> maestros_command() { return std::make_unique<Maestros>(); }

} // namespace tolvex::console
