#include "console/command.hpp"
#include "console/output.hpp"
#include "core/errors.hpp"
#include "diagnosis/diagnosis.hpp"
#include "platform/clock.hpp"
#include "platform/files.hpp"

namespace tolvex::console {

namespace {

const char16_t* in_words(Verdict verdict)
{
    if (verdict == Verdict::well) return u"bien   ";
    return verdict == Verdict::warning ? u"AVISO  " : u"MAL    ";
}

class Diagnostico : public Command
{
public:
    const char* name() const override { return "diagnostico"; }
    const char* purpose() const override
    {
        return "Revisa lo que hace falta para emitir, con un sello de prueba; un renglón por cosa";
    }
    const char* example() const override
    {
        return "tolvex diagnostico --empresa 1 --sucursal 1 --bd tienda.db";
    }

    void declare(Options& options) override
    {
        options.option("--empresa", company_, "Número de la empresa (si falta, todas)");
        options.option("--sucursal", branch_, "Número de la sucursal (si falta, todas)");
        options.option("--carpeta", folder_, "Carpeta de trabajo (si falta, la de cada certificado)");
    }

    int run(const Place& place) override
    {
        if (branch_ != 0 && company_ == 0) return fail(u"falta --empresa");
        Diagnosed diagnosed{company_, branch_};
        if (!folder_.empty()) diagnosed.folder = files::absolute_path(to_text(folder_));
        try {
            connect(place);
            diagnose(session(), diagnosed, local_now(), [&](const Observation& seen) { tell(seen); });
        } catch (const Error& error) {
            tell({Verdict::wrong, u"base de datos", error.description()});
        }
        return issuing_works_ ? 0 : 1;
    }

private:
    void tell(const Observation& seen)
    {
        if (seen.verdict == Verdict::wrong) issuing_works_ = false;
        print_line(in_words(seen.verdict) + seen.about + u": " + seen.what);
    }

    std::int16_t company_ = 0, branch_ = 0;
    std::string folder_;
    bool issuing_works_ = true;
};

} // namespace

std::unique_ptr<Command> diagnostico_command() { return std::make_unique<Diagnostico>(); }

} // namespace tolvex::console
