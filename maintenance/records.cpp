#include "maintenance/records.hpp"

#include "core/numbers.hpp"
#include "core/text.hpp"
#include "database/literal.hpp"
#include "session/configuracion.hpp"

namespace tolvex {

namespace {

// As the forms store what is typed.
Text stored_form(const Text& typed) { return literal(upper_case(trim(typed))); }

std::int16_t lowest(Session& session, const Text& number, const Text& table, const Text& condition)
{
    const Text sql = u"Select min(" + number + u") as n From " + table + u"(nolock) Where " + condition;
    return to_int16(leading_number(fgValorCampo(session, u"n", sql).text()));
}

} // namespace

bool ExisteEmpresa(Session& session, std::int16_t company)
{
    return !shared_connection(session)
                .query(u"Select nEmpresa from FE_Empresas (nolock) where NEmpresa=" + decimal(company))
                .eof();
}

std::int16_t find_company(Session& session, const Text& rfc)
{
    return lowest(session, u"nEmpresa", u"FE_EMPRESAS", u"cRfc=" + stored_form(rfc));
}

std::int16_t find_branch(Session& session, std::int16_t company, const Text& name)
{
    return lowest(session, u"nSucursal", u"FE_SUCURSALES",
                  u"nEmpresa=" + decimal(company) + u" And cNombre=" + stored_form(name));
}

std::int16_t find_certificate(Session& session, std::int16_t company, const Text& certificate_number)
{
    return lowest(session, u"nCertificado", u"FE_CERTIFICADOS",
                  u"nEmpresa=" + decimal(company) + u" And cSerie_Certificado=" +
                      literal(certificate_number));
}

std::int16_t find_folio_range(Session& session, std::int16_t company, const Text& kind, const Text& series,
                              const Text& first_folio)
{
    return lowest(session, u"nFolio", u"FE_FOLIOS",
                  u"nEmpresa=" + decimal(company) + u" And cDocumento=" + stored_form(kind) +
                      u" And cSerie=" + stored_form(series) + u" And nDesde=" +
                      decimal(to_int32(leading_number(first_folio))));
}

} // namespace tolvex
