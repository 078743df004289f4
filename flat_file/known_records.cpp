#include "flat_file/known_records.hpp"

#include "core/errors.hpp"
#include "core/numbers.hpp"
#include "core/text.hpp"
#include "flat_file/record.hpp"
#include "issuing/master_data.hpp"

namespace tolvex {

namespace {

void require(bool loaded, const Text& what)
{
    if (!last_error().empty()) throw wrong(u"no se pudo cargar " + what + u": " + last_error());
    if (!loaded) throw wrong(u"no existe " + what);
}

} // namespace

void load_issuer(Session& session, std::int16_t nEmpresa, std::int16_t nSucursal)
{
    forget_error();
    require(load_company(session, nEmpresa), u"la empresa " + decimal(nEmpresa));
    require(load_branch(session, nEmpresa, nSucursal), u"la sucursal " + decimal(nSucursal));
    require(load_certificate(session, nEmpresa), u"el certificado " + decimal(session.gnCertificado));
}

KnownRecords::KnownRecords(const Session& session) { session_.gConexion = session.gConexion; }

const Text& KnownRecords::fault_of_issuer(std::int16_t nEmpresa, std::int16_t nSucursal)
{
    const auto [found, is_new] = issuers_.try_emplace({nEmpresa, nSucursal});
    if (is_new) {
        try {
            load_issuer(session_, nEmpresa, nSucursal);
        } catch (const Error& error) {
            found->second = error.description();
        }
    }
    return found->second;
}

const KnownRecords::FolioRange& KnownRecords::folio_range(std::int32_t number)
{
    const auto [found, is_new] = folio_ranges_.try_emplace(number);
    if (is_new) {
        const Recordset row = shared_connection(session_).query(
            u"Select nEmpresa, cDocumento from FE_FOLIOS(Nolock) Where nFolio = " + decimal(number));
        if (!row.eof()) found->second = {row[u"nEmpresa"].int16(), trim(row[u"cDocumento"].text())};
    }
    return found->second;
}

bool KnownRecords::has_node(const Text& rfc, bool of_lines, std::int16_t nRama, std::int16_t nPadre)
{
    return nodes(rfc, of_lines).contains({nRama, nPadre});
}

const KnownRecords::Nodes& KnownRecords::nodes(const Text& rfc, bool of_lines)
{
    const auto [found, is_new] = nodes_.try_emplace({rfc, of_lines});
    if (!is_new) return found->second;
    const Text table = of_lines ? u"fe_ctl_adendasDet" : u"fe_ctl_adendas";
    for (Recordset row = shared_connection(session_).query(
             u"Select nRama, nPadre from " + table + u"(Nolock) Where crfccte = @rfc", {{u"rfc", rfc}});
         !row.eof(); row.move_next())
        found->second.insert({row[u"nRama"].int16(), row[u"nPadre"].int16()});
    return found->second;
}

} // namespace tolvex
