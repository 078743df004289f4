#include "issuing/stored_documents.hpp"

#include "core/errors.hpp"

namespace tolvex {

bool CancelaFacturaElectronica(Session& session, const Text& FolioDocto, Date FechaCancelacion,
                               std::int16_t Empresa, std::int16_t Sucursal, bool NotadeCredito)
{
    return trapping(false, [&] {
        const Text kind = NotadeCredito ? u"' and ctipodocumento='N'" : u"' and ctipodocumento='F'";
        const Text sql = u"update FE_VENTAS_RESUMEN set cstatus='C', dFechaCan='" +
                         format(FechaCancelacion, u"yyyy-mm-dd") + u"'   where cdocumento='" + FolioDocto +
                         kind + u"\r and nempresa= " + decimal(Empresa) + u" and nsucursal= " +
                         decimal(Sucursal);
        shared_connection(session).execute(sql);
        return true;
    });
}

bool BorraFacturaElectronica(Session& session, std::int16_t Empresa, std::int16_t Sucursal,
                             const Text& FolioDocto)
{
    const Text filter = u"cdocumento='" + FolioDocto + u"'\r and nempresa= " + decimal(Empresa) +
                        u" and nsucursal= " + decimal(Sucursal);
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

bool fgObtenFolioFactura(Session& session, const Text& Caja, Text& FolioFactura)
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
