#include "diagnosis/diagnosis.hpp"

#include "core/base64.hpp"
#include "core/display_patterns.hpp"
#include "core/errors.hpp"
#include "core/numbers.hpp"
#include "core/text.hpp"
#include "diagnosis/folio_ranges.hpp"
#include "diagnosis/missing_files.hpp"
#include "diagnosis/working_folder.hpp"
#include "issuing/master_data.hpp"
#include "rebuilding/issuers.hpp"
#include "schema/check.hpp"

#include <cmath>
#include <set>

namespace tolvex {

namespace {

constexpr TextView masters = u"«tolvex maestros» o las ventanas de Maestros",
                   certify = u"«tolvex certificado» o la ventana de certificados";

// Before its end, from when on it is told.
constexpr double days_of_warning = 30;

class Diagnosis
{
public:
    Diagnosis(Session& session, const Diagnosed& diagnosed, Date today, const Tell& tell)
        : session_(session), diagnosed_(diagnosed), today_(today), tell_(tell)
    {}

    void run();

private:
    void look_at_database();
    void look_at_companies();
    void look_at_company(std::int16_t company);
    void look_at_branch(std::int16_t company, std::int16_t branch);
    void look_at_certificate(const Session& issuer, const Text& about);
    void look_at_validity(const Session& issuer, const Text& about);
    void look_at_seal(const Session& issuer, const Text& about, const Certificate* certificate);

    // A check that cannot be made is told as wrong, and the others go on.
    template <class Check>
    void look_at(const Text& about, Check check);
    template <class Load>
    Text fault_of(Load load);
    Recordset query(const Text& sql) { return shared_connection(session_).query(sql); }
    std::vector<std::int16_t> numbers_of(const Text& column, const Text& table, const Text& condition);

    Session& session_;
    const Diagnosed& diagnosed_;
    const Date today_;
    const Tell& tell_;
    std::set<std::pair<std::int16_t, std::int16_t>> seen_certificates_;
};

void Diagnosis::run()
{
    look_at(u"base de datos", [&] { look_at_database(); });
    look_at(u"empresas", [&] { look_at_companies(); });
    look_at(u"XML", [&] {
        look_at_missing_files(session_, {diagnosed_.company, diagnosed_.branch, diagnosed_.folder}, tell_);
    });
}

template <class Check>
void Diagnosis::look_at(const Text& about, Check check)
{
    try {
        check();
    } catch (const Error& error) {
        tell_({Verdict::wrong, about, u"no se pudo revisar: " + error.description()});
    }
}

void Diagnosis::look_at_database()
{
    Connection& connection = shared_connection(session_);
    connection.begin_transaction(); // an embedded file that only can be read refuses it
    connection.roll_back();
    tell_({Verdict::well, u"base de datos", connection.description()});
    const std::vector<Text> findings = schema_findings(connection);
    for (const Text& finding : findings) tell_({Verdict::wrong, u"esquema", finding});
    if (findings.empty()) tell_({Verdict::well, u"esquema", u"completo"});
}

void Diagnosis::look_at_companies()
{
    const Text condition =
        diagnosed_.company == 0 ? Text(u"1=1") : u"nEmpresa=" + decimal(diagnosed_.company);
    const auto companies = numbers_of(u"nEmpresa", u"FE_EMPRESAS", condition);
    for (const std::int16_t company : companies)
        look_at(u"empresa " + decimal(company), [&] { look_at_company(company); });
    if (!companies.empty()) return;
    tell_({Verdict::wrong, u"empresas",
           (diagnosed_.company == 0 ? Text(u"no hay ninguna")
                                    : u"no existe la empresa " + decimal(diagnosed_.company)) +
               u"; regístrela con " + Text(masters)});
}

void Diagnosis::look_at_company(std::int16_t company)
{
    const Text about = u"empresa " + decimal(company);
    Session issuer;
    issuer.gConexion = session_.gConexion;
    const Text fault = company_fault(issuer, company);
    if (fault.empty())
        tell_({Verdict::well, about, issuer.gEmpRfc + u" " + issuer.gEmpNombre});
    else
        tell_({Verdict::wrong, about, fault + u"; guárdela de nuevo con " + Text(masters)});

    const Text of_branch = diagnosed_.branch == 0 ? Text() : u" And nSucursal=" + decimal(diagnosed_.branch);
    const auto branches =
        numbers_of(u"nSucursal", u"FE_SUCURSALES", u"nEmpresa=" + decimal(company) + of_branch);
    if (branches.empty())
        tell_({Verdict::wrong, about,
               (diagnosed_.branch == 0 ? Text(u"no tiene sucursales")
                                       : u"no tiene la sucursal " + decimal(diagnosed_.branch)) +
                   u"; regístrela con " + Text(masters)});
    for (const std::int16_t branch : branches)
        look_at(about + u", sucursal " + decimal(branch), [&] { look_at_branch(company, branch); });
    look_at(about + u", folios",
            [&] { look_at_folio_ranges(shared_connection(session_), company, diagnosed_.branch, tell_); });
}

void Diagnosis::look_at_branch(std::int16_t company, std::int16_t branch)
{
    const Text of_company = u"empresa " + decimal(company),
               about = of_company + u", sucursal " + decimal(branch);
    Session issuer;
    issuer.gConexion = session_.gConexion;
    issuer.gnEmpresa = company;
    const Text branch_fault = fault_of([&] { return load_branch(issuer, company, branch); });
    if (!branch_fault.empty())
        return tell_({Verdict::wrong, about, branch_fault + u"; guárdela de nuevo con " + Text(masters)});
    const Text certificate = u"certificado " + decimal(issuer.gnCertificado),
               fault = fault_of([&] { return load_certificate(issuer, company); });
    if (!fault.empty())
        return tell_({Verdict::wrong, about,
                      u"sella con el " + certificate + u", que no se pudo leer completo: " + fault +
                          u"; regístrelo con " + Text(certify) + u" y asígnelo a la sucursal"});
    tell_({Verdict::well, about, issuer.gSucNombre + u", sella con el " + certificate});
    if (!seen_certificates_.insert({company, issuer.gnCertificado}).second) return;
    look_at(of_company + u", " + certificate,
            [&] { look_at_certificate(issuer, of_company + u", " + certificate); });
}

// What loading a row left as its fault; empty when it is loaded whole.
template <class Load>
Text Diagnosis::fault_of(Load load)
{
    forget_error();
    if (!load()) return last_error().empty() ? Text(u"no existe") : last_error();
    return last_error();
}

void Diagnosis::look_at_certificate(const Session& issuer, const Text& about)
{
    look_at_validity(issuer, about);
    const auto certificate = trapping(std::unique_ptr<Certificate>(), [&] {
        return std::make_unique<Certificate>(from_base64(issuer.gCertificado).value_or(std::string()));
    });
    if (!certificate)
        tell_({Verdict::wrong, about,
               u"lo guardado no es un certificado; regístrelo de nuevo con " + Text(certify)});
    look_at_seal(issuer, about, certificate.get());
}

void Diagnosis::look_at_validity(const Session& issuer, const Text& about)
{
    const Text number = issuer.gSerieCertificado, from = format(issuer.gVigenciaDesde, u"yyyy-mm-dd"),
               until = format(issuer.gVigenciaHasta, u"yyyy-mm-dd");
    const double left = std::floor(issuer.gVigenciaHasta.days) - std::floor(today_.days);
    const Text renew = u"; registre el nuevo con " + Text(certify) + u" y asígnelo a la sucursal";
    if (today_.days < issuer.gVigenciaDesde.days)
        return tell_({Verdict::wrong, about,
                      number + u" vale a partir del " + from + u"; revise la fecha del equipo"});
    if (today_.days > issuer.gVigenciaHasta.days)
        return tell_({Verdict::wrong, about, number + u" caducó el " + until + renew});
    const Text days = number + u" vence el " + until + u", en " + decimal(std::llround(left)) +
                      (left == 1 ? u" día" : u" días");
    if (left <= days_of_warning) return tell_({Verdict::warning, about, days + renew});
    tell_({Verdict::well, about, days});
}

void Diagnosis::look_at_seal(const Session& issuer, const Text& about, const Certificate* certificate)
{
    Text folder = diagnosed_.folder;
    if (folder.empty())
        folder = trim(query(u"Select cRutaArchivoSelloDigital From FE_CERTIFICADOS(nolock) Where nEmpresa=" +
                            decimal(issuer.gnEmpresa) + u" And nCertificado=" +
                            decimal(issuer.gnCertificado))[u"cRutaArchivoSelloDigital"]
                          .text());
    if (folder.empty())
        return tell_(
            {Verdict::wrong, about, u"no tiene carpeta de sello; indique la de trabajo con --carpeta"});
    look_at_working_folder(folder, {certificate, issuer.gSerieCertificado, today_}, tell_);
}

std::vector<std::int16_t> Diagnosis::numbers_of(const Text& column, const Text& table, const Text& condition)
{
    std::vector<std::int16_t> numbers;
    const Text sql =
        u"Select " + column + u" From " + table + u"(nolock) Where " + condition + u" Order By " + column;
    for (Recordset rows = query(sql); !rows.eof(); rows.move_next()) numbers.push_back(rows[column].int16());
    return numbers;
}

} // namespace

void diagnose(Session& session, const Diagnosed& diagnosed, Date today, const Tell& tell)
{
    Diagnosis(session, diagnosed, today, tell).run();
}

} // namespace tolvex
