#include "console/command.hpp"
#include "console/output.hpp"
#include "issuing/stored_documents.hpp"

namespace tolvex::console {

namespace {

class Folio : public Command
{
public:
    const char* name() const override { return "folio"; }
    const char* purpose() const override { return "Escribe el siguiente folio de un rango, sin tomarlo"; }
    const char* example() const override { return "tolvex folio 1 --bd tienda.db"; }

    void declare(Options& options) override { options.key("CLAVE", range_, "Número del rango de folios"); }

    int run(const Place& place) override
    {
        connect(place);
        Text next;
        if (!next_folio_of_range(session(), to_text(range_), next))
            return fail(u"el rango de folios " + to_text(range_) + u" no existe o ya se agotó");
        print_line(next);
        return 0;
    }

private:
    std::string range_;
};

} // namespace

std::unique_ptr<Command> folio_command() { return std::make_unique<Folio>(); }

} // namespace tolvex::console
