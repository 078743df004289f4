#include "console/command.hpp"
#include "console/output.hpp"
#include "console/table.hpp"
#include "core/numbers.hpp"
#include "maintenance/certificate_expiry.hpp"
#include "maintenance/pickers.hpp"
#include "platform/clock.hpp"
#include "platform/in_memory/forms_in_memory.hpp"

namespace tolvex::console {

namespace {

// The rows that the picker of one kind shows.
class Lista : public Command
{
public:
    const char* name() const override { return "lista"; }
    const char* purpose() const override
    {
        return "Lista empresas, sucursales, certificados o folios, y avisa de los certificados por vencer";
    }
    const char* example() const override { return "tolvex lista folios --empresa 1 --bd tienda.db"; }

    void declare(Options& options) override
    {
        options.choice("QUE", kind_, {"empresas", "sucursales", "certificados", "folios"}, "Qué se lista");
        options.option("--empresa", company_, "Número de la empresa; obligatorio menos para empresas");
        options.flag("--json", json_, "Escribe un arreglo JSON");
    }

    int run(const Place& place) override
    {
        if (kind_ == "empresas")
            connect(place);
        else if (company_ == 0)
            return fail(u"falta --empresa");
        else
            connect(place, company_);
        const std::unique_ptr<Form> picker = picker_of_kind();
        const FormInMemory form(*picker);
        (json_ ? print_json : print_table)(form.columns(u"LstLQS3"), form.rows(u"LstLQS3"));
        if (kind_ == "certificados") warn_of_expiry(form.rows(u"LstLQS3"));
        return 0;
    }

private:
    std::unique_ptr<Form> picker_of_kind() const
    {
        if (kind_ == "empresas") return companies_picker(session());
        if (kind_ == "sucursales") return branches_picker(session(), company_);
        if (kind_ == "certificados") return certificates_picker(session(), company_);
        return folios_picker(session(), company_);
    }

    void warn_of_expiry(const std::vector<ListRow>& certificates) const
    {
        for (const ListRow& row : certificates) {
            const auto number = to_int16(leading_number(row.front()));
            const Text warning = expiry_warning(session(), company_, number, local_now());
            if (!warning.empty()) say_warning(warning);
        }
    }

    std::string kind_;
    std::int16_t company_ = 0;
    bool json_ = false;
};

} // namespace

std::unique_ptr<Command> lista_command() { return std::make_unique<Lista>(); }

} // namespace tolvex::console
