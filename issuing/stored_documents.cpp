#include "issuing/stored_documents.hpp"

#include "core/display_patterns.hpp"
#include "core/errors.hpp"
#include "core/numbers.hpp"

namespace tolvex {

namespace {

// Both kinds when it is empty.
Text where(const DocumentKey& key, const Text& kind)
{
    return u" Where cDocumento='" + key.folio + u"' And nEmpresa=" + decimal(key.company) +
           u" And nSucursal=" + decimal(key.branch) +
           (kind.empty() ? Text() : u" And cTipoDocumento='" + kind + u"'");
}

} // namespace

std::int32_t count_documents(Session& session, const DocumentKey& key, const Text& kind)
{
    const Text sql = u"Select count(*) as n From FE_VENTAS_RESUMEN(nolock)" + where(key, kind);
    return shared_connection(session).query(sql)[u"n"].int32();
}

StoredDocument read_document(Session& session, const DocumentKey& key, const Text& kind)
{
    const Recordset row = shared_connection(session).query(
        u"Select cCadenaOriginal,cSelloDigital,nImporteConLetra From FE_VENTAS_RESUMEN(nolock)" +
        where(key, kind) + u" Order By nID Desc");
    return {row[u"cCadenaOriginal"].text(), row[u"cSelloDigital"].text(), row[u"nImporteConLetra"].text()};
}

bool cancel_document(Session& session, const DocumentKey& key, Date FechaCancelacion, bool NotadeCredito)
{
    return trapping(false, [&] {
        const Text kind = NotadeCredito ? u"' and ctipodocumento='N'" : u"' and ctipodocumento='F'";
        const Text sql = u"update FE_VENTAS_RESUMEN set cstatus='C', dFechaCan='" +
                         format(FechaCancelacion, u"yyyy-mm-dd") + u"'   where cdocumento='" + key.folio +
                         kind + u"\r and nempresa= " + decimal(key.company) + u" and nsucursal= " +
                         decimal(key.branch);
        shared_connection(session).execute(sql);
        return true;
    });
}

bool delete_document(Session& session, const DocumentKey& key)
{
    const Text filter = u"cdocumento='" + key.folio + u"'\r and nempresa= " + decimal(key.company) +
                        u" and nsucursal= " + decimal(key.branch);
    const Text of_document = u"  where nIdFe in (Select nID from FE_VENTAS_RESUMEN  where " + filter + u")";
    const Text delete_document = u"Delete FE_VENTAS_RESUMEN  where " + filter;
    return trapping(false, [&] {
        Connection& connection = shared_connection(session);
        connection.execute(u"Delete FE_ClienteFactura" + of_document);
        connection.execute(u"Delete FE_VENTAS_RESUMEN_DET" + of_document);
        connection.execute(delete_document);
        connection.execute(delete_document); // Deliberate: sent twice, the second finds nothing.
        return true;
    });
}

bool next_folio_of_range(Session& session, const Text& Caja, Text& FolioFactura)
{
    FolioFactura = u"0";
    const Text sql =
        u"Select isnull(nultimoFolio,0) as nultimofolio from FE_FOLIOS fe(Nolock) Where nfolio= '" + Caja +
        u"'\rand isnull(nultimoFolio,0)+1 <=nhasta";
    const Recordset rows = shared_connection(session).query(sql);
    if (rows.eof()) return false;
    FolioFactura = number_as_text(leading_number(u"0" + rows[u"nultimofolio"].text()) + 1);
    return true;
}

} // namespace tolvex
