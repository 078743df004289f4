#include "console/master_data/registration.hpp"

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

void tell(const Text& kind, std::int16_t number, const Text& what)
{
    print_line(kind + u" " + decimal(number) + u": " + what);
}

CertificateFiles files_of(const Entry& certificate, const Text& file)
{
    const auto in_folder = [&](const char* key) {
        return certificate.has(key) ? files::resolved(file, certificate.required(key)) : Text();
    };
    return {in_folder("cer"), in_folder("key"), in_folder("carpeta_sello")};
}

void register_company(Registrar& registrar, const CompanyEntry& entry, const Text& file)
{
    const std::int16_t company = saved(entry.company, [&] { return registrar.save_company(entry.company); });
    tell(u"Empresa", company, entry.company.required("rfc"));
    for (const Entry& certificate : entry.certificates)
        tell(u"  Certificado",
             saved(certificate,
                   [&] {
                       return registrar.save_certificate(company, certificate, files_of(certificate, file));
                   }),
             certificate.required("cer"));
    for (const Entry& branch : entry.branches)
        tell(u"  Sucursal", saved(branch, [&] { return registrar.save_branch(company, branch); }),
             branch.required("nombre"));
    for (const Entry& range : entry.folio_ranges)
        tell(u"  Rango de folios", saved(range, [&] { return registrar.save_folio_range(company, range); }),
             range.required("documento") + u" " + range.required("serie"));
}

} // namespace

void register_companies(const std::vector<CompanyEntry>& companies, const Text& file)
{
    Registrar registrar(session());
    for (const CompanyEntry& company : companies) register_company(registrar, company, file);
}

} // namespace tolvex::console
