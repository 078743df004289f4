#include "console/command.hpp"
#include "console/master_data/registrar.hpp"
#include "console/output.hpp"
#include "core/errors.hpp"
#include "core/numbers.hpp"
#include "platform/files.hpp"

namespace tolvex::console {

namespace {

// Runs one record of the file and says where in it something went wrong.
template <class Save>
std::int16_t saved(const Entry& entry, Save save)
{
    try {
        return save();
    } catch (const Error& error) {
        throw invalid_call(u"Línea " + decimal(entry.line) + u": " + error.description());
    }
}

class Maestros : public Command
{
public:
    const char* name() const override { return "maestros"; }
    const char* purpose() const override
    {
        return "Registra empresas, certificados, sucursales y folios de un archivo TOML";
    }

    void declare(Options& options) override
    {
        options.argument("ARCHIVO", file_, "Archivo TOML (vea docs/maestros.md)");
    }

    int run(const Place& place) override
    {
        path_ = files::absolute_path(to_text(file_));
        const std::vector<CompanyEntry> companies = read_entries(path_);
        connect(place);
        Registrar registrar(session());
        for (const CompanyEntry& company : companies) register_company(registrar, company);
        disconnect();
        return 0;
    }

private:
    void register_company(Registrar& registrar, const CompanyEntry& entry)
    {
        const std::int16_t company =
            saved(entry.company, [&] { return registrar.save_company(entry.company); });
        tell(u"Empresa", company, entry.company.required("rfc"));
        for (const Entry& certificate : entry.certificates)
            tell(u"  Certificado",
                 saved(
                     certificate,
                     [&] { return registrar.save_certificate(company, certificate, files_of(certificate)); }),
                 certificate.required("cer"));
        for (const Entry& branch : entry.branches)
            tell(u"  Sucursal", saved(branch, [&] { return registrar.save_branch(company, branch); }),
                 branch.required("nombre"));
        for (const Entry& range : entry.folio_ranges)
            tell(u"  Rango de folios",
                 saved(range, [&] { return registrar.save_folio_range(company, range); }),
                 range.required("documento") + u" " + range.required("serie"));
    }

    // Relative to the file's own folder.
    CertificateFiles files_of(const Entry& certificate) const
    {
        const auto in_folder = [&](const char* key) {
            return certificate.has(key) ? files::resolved(path_, certificate.required(key)) : Text();
        };
        return {in_folder("cer"), in_folder("key"), in_folder("carpeta_sello")};
    }

    static void tell(const Text& kind, std::int16_t number, const Text& what)
    {
        print_line(kind + u" " + decimal(number) + u": " + what);
    }

    std::string file_;
    Text path_;
};

} // namespace

std::unique_ptr<Command> maestros_command() { return std::make_unique<Maestros>(); }

} // namespace tolvex::console
