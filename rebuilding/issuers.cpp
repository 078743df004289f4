#include "rebuilding/issuers.hpp"

#include "core/base64.hpp"
#include "core/errors.hpp"
#include "core/numbers.hpp"
#include "core/text.hpp"
#include "database/literal.hpp"
#include "issuing/master_data.hpp"
#include "platform/files.hpp"

namespace tolvex {

namespace {

std::shared_ptr<const Certificate> read_certificate(const Text& text)
{
    return trapping(std::shared_ptr<const Certificate>(), [&] {
        const auto der = from_base64(text);
        return std::make_shared<const Certificate>(der ? *der : std::string());
    });
}

// Of several registrations of one certificate the latest.
void load_registered_certificate(Issuer& issuer, std::int16_t company, const Text& number)
{
    Session& session = issuer.session;
    session.gSerieCertificado = number;
    const Recordset row = shared_connection(session).query(
        u"Select cCertificado,cRutaArchivoSelloDigital From FE_CERTIFICADOS(nolock) Where nEmpresa=" +
        decimal(company) + u" And cSerie_Certificado=" + literal(number) + u" Order By nCertificado Desc");
    if (row.eof()) {
        if (issuer.fault.empty())
            issuer.fault = u"la empresa " + decimal(company) + u" no tiene el certificado «" + number + u"»";
        return;
    }
    session.gCertificado = trim(row[u"cCertificado"].text());
    issuer.seal_folder = row[u"cRutaArchivoSelloDigital"].text();
    issuer.certificate = read_certificate(session.gCertificado);
}

} // namespace

Text company_fault(Session& session, std::int16_t company)
{
    forget_error();
    if (!load_company(session, company)) return u"no existe la empresa " + decimal(company);
    if (last_error().empty()) return {};
    return u"los datos de la empresa " + decimal(company) + u" no se pudieron leer: " + last_error();
}

const Issuer& Issuers::find(std::int16_t company, const Text& certificate_number)
{
    const auto [place, is_new] = found_.try_emplace({company, certificate_number});
    Issuer& issuer = place->second;
    if (is_new) {
        issuer.session.gConexion = connection_;
        issuer.fault = company_fault(issuer.session, company);
        load_registered_certificate(issuer, company, certificate_number);
    }
    return issuer;
}

Text working_folder(const Text& seal_folder)
{
    return files::folder_exists(seal_folder) ? seal_folder : files::absolute_path(u".");
}

} // namespace tolvex
