#include "console/named_document.hpp"
#include "console/output.hpp"
#include "core/numbers.hpp"
#include "tolvex/errors.hpp"

namespace tolvex::console {

namespace {

class Borra : public Command
{
public:
    const char* name() const override { return "borra"; }
    const char* purpose() const override { return "Borra un documento con su receptor y sus renglones"; }

    void declare(Options& options) override { document_.declare(options); }

    int run(const Place& place) override
    {
        connect(place);
        const std::int32_t documents = count_documents(session(), document_.key());
        if (documents == 0) return fail(u"no existe el documento " + document_.described());
        if (!delete_document(session(), document_.key())) return fail(u"no se pudo borrar: " + last_error());
        print_line(u"Borrados " + decimal(documents) + u" documentos con el folio " + document_.described());
        return 0;
    }

private:
    NamedDocument document_;
};

} // namespace

std::unique_ptr<Command> borra_command() { return std::make_unique<Borra>(); }

} // namespace tolvex::console
