#include "console/given_day.hpp"
#include "console/named_document.hpp"
#include "console/output.hpp"
#include "core/display_patterns.hpp"
#include "platform/clock.hpp"
#include "tolvex/errors.hpp"

namespace tolvex::console {

namespace {

class Cancela : public Command
{
public:
    const char* name() const override { return "cancela"; }
    const char* purpose() const override { return "Marca un documento como cancelado"; }
    const char* example() const override
    {
        return "tolvex cancela 15 --empresa 1 --sucursal 1 --bd tienda.db";
    }

    void declare(Options& options) override
    {
        document_.declare(options);
        options.option("--fecha", date_, "Fecha de cancelación aaaa-mm-dd (si falta, hoy)");
        options.flag("--nota-de-credito", credit_note_, "El documento es una nota de crédito");
    }

    int run(const Place& place) override
    {
        const Date day = given_day("--fecha", date_).value_or(local_now());
        connect(place);
        const Text described = (credit_note_ ? u"nota de crédito " : u"factura ") + document_.described();
        if (count_documents(session(), document_.key(), credit_note_ ? u"N" : u"F") == 0)
            return fail(u"no existe la " + described);
        if (!cancel_document(session(), document_.key(), day, credit_note_))
            return fail(u"no se pudo cancelar: " + last_error());
        print_line(u"Cancelada la " + described + u" con fecha " + format(day, u"yyyy-mm-dd"));
        return 0;
    }

private:
    NamedDocument document_;
    std::string date_;
    bool credit_note_ = false;
};

} // namespace

std::unique_ptr<Command> cancela_command() { return std::make_unique<Cancela>(); }

} // namespace tolvex::console
