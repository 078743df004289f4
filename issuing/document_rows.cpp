#include "issuing/document_rows.hpp"

#include "core/numbers.hpp"
#include "core/text.hpp"
#include "issuing/amount_patterns.hpp"
#include "session/configuracion.hpp"

namespace tolvex {

namespace {

Text quoted(const Text& value) { return u"'" + value + u"'"; }

Text without_bars(const Text& value) { return quoted(without(value, u'|')); }

} // namespace

Text DocumentRows::amount_in_words()
{
    return fgValorCampo(session_, u"Letra",
                        u"Select Letra=dbo.fg_Numero2Letra(" + number_as_text(document_.DocTotal) + u",'" +
                            session_.gMoneda + u"')")
        .text();
}

void DocumentRows::store_header()
{
    const bool egreso = document_.es_nota_credito;
    UpdatableRecordset row = connection().open_updatable(u"Select * from FE_VENTAS_RESUMEN Where 1=0");
    row.add_new();
    row.set(u"cDocumento", vlnFactura_);
    row.set(u"cTipoDocumento", egreso ? u"N" : u"F");
    row.set(u"nEmpresa", session_.gnEmpresa);
    row.set(u"nSucursal", session_.gnSucursal);
    row.set(u"cEfecto", egreso ? u"E" : u"I");
    row.set(u"cCliente", document_.DocCliente);
    row.set(u"dFecha", document_.DocFechaDate);
    // Deliberate: the series alone, in spite of the name.
    row.set(u"cSerieFolioFE", trim(document_.DocSerie));
    row.set(u"cSerie", document_.DocSerie);
    row.set(u"nFolioFE", to_number(document_.DocFolio));
    row.set(u"cNumero_Aprobacion", document_.DocNumeroAprobacion);
    row.set(u"cSerie_Certificado", document_.DocSerieCertificado);
    row.set(u"cSelloDigital", document_.sello);
    row.set(u"cCadenaOriginal", document_.original_string);
    row.set(u"cFormaDePago", document_.DocFormaDePago);
    row.set(u"nSubTotalAD", rounded_amount(session_.gSubtotal));
    row.set(u"nDescuento", rounded_amount(session_.gDescuento));
    row.set(u"nSubTotalDD", rounded_amount(session_.gSubtotalDD));
    row.set(u"nIva", to_number(session_.gImpuesto));
    row.set(u"nTotal", rounded_amount(session_.gTotal));
    row.set(u"nImporteConLetra", amount_in_words());
    row.set(u"cStatus", u"A");
    row.set(u"cMoneda", session_.gMoneda);
    row.set(u"nParidad", to_number(session_.gParidad));
    row.set(u"nIvaRetenido", to_number(session_.gIvaRet));
    row.set(u"nIsrRetenido", to_number(session_.gISRRet));
    row.update();
}

// Deliberate: the highest identifier after the insert, without a lock; another station's may be taken for
// ours.
Text DocumentRows::read_identifier()
{
    const Recordset rows =
        connection().query(u"select isnull(max(nid),0) as nidfe from FE_VENTAS_RESUMEN(nolock)");
    return number_as_text(rows[u"nidfe"].number());
}

void DocumentRows::store_receiver(const Text& identifier)
{
    insert_receiver(identifier);
    connection().execute(u"Update FE_ClienteFactura set cDatoAdicional1 = '" + session_.gDatoAdicional +
                         u"', cDatoAdicional2 = '" + session_.gDatoAdicional2 + u"',cDatoAdicional3 = '" +
                         session_.gDatoAdicional3 + u"' Where nidFE = " + identifier);
}

void DocumentRows::insert_receiver(const Text& identifier)
{
    const DocumentValues& d = document_;
    // Deliberate: 'F' and 'I' for credit notes too.
    const Text sql =
        u"insert into FE_ClienteFactura(nidFE,nFolioDocto,cTipoDocumento,cEmpresa,cSucursal,cEfecto,dFecha"
        u",cSerieFolioFE,cSerie,cNumero_Aprobacion,cSerie_Certificado,cSelloDigital"
        u",cCadenaOriginal,cRfcCte,cNombreCte,cCalleCte,cNumExteriorCte,cNumInteriorCte"
        u",cColoniaCte,cLocalidadCte,cEstaadoCte,cMunicipioCte,cPaisCte,cCodPostalCte"
        u",nSubtotalDocto,nImporteDescto,nSubtotalConDescto,nImporteIva,nImporteTotal)"
        u"values(" +
        join({identifier,
              quoted(vlnFactura_),
              u"'F'",
              quoted(decimal(session_.gnEmpresa)),
              quoted(decimal(session_.gnSucursal)),
              u"'I'",
              quoted(d.DocFecha),
              quoted(trim(d.DocSerie)),
              quoted(d.DocSerie),
              quoted(d.DocNumeroAprobacion),
              quoted(d.DocSerieCertificado),
              quoted(d.sello),
              quoted(d.original_string),
              without_bars(d.RecRfc),
              without_bars(d.RecNombre),
              without_bars(d.RecCalle),
              without_bars(d.RecNoExterior),
              without_bars(d.RecNoInterior),
              without_bars(d.RecColonia),
              without_bars(d.RecLocalidad),
              without_bars(d.RecEstado),
              without_bars(d.RecMunicipio),
              without_bars(d.RecPais),
              without_bars(d.RecCodigoPostal),
              number_as_text(d.DocSubTotal),
              number_as_text(d.DocDescuento),
              number_as_text(d.DocSubTotalDD),
              number_as_text(d.DocImpuesto),
              number_as_text(d.DocTotal)},
             u",") +
        u")";
    connection().execute(sql);
}

void DocumentRows::store_lines(const Text& identifier)
{
    for (std::int32_t i = 1; i <= session_.gNumDetalle; ++i) insert_line(identifier, i);
}

void DocumentRows::insert_line(const Text& identifier, std::int32_t number)
{
    const DetalleRow& line = session_.gDetalle[number];
    // Deliberate: 'F' for credit notes too.
    connection().execute(u"insert into FE_VENTAS_RESUMEN_DET(nIdFe,nFolioDocto,cTipoDocumento ,cProducto "
                         u",nCantidad ,cunidad "
                         u",nPrecio ,nIva ,nImporte ,nImpuesto, nRenglon,cArticulo,nEmpresa,nSucursal)"
                         u"values(" +
                         identifier + u",'" + vlnFactura_ + u"','F','" + line.Producto + u"'," +
                         line.Cantidad + u",'" + line.Unidad + u"'," + line.PrecioSinIva + u"," + line.Iva +
                         u"," + line.Importe + u"," + line.PorcIva + u"," + decimal(number) + u",'" +
                         line.CveProducto + u"'," + decimal(session_.gnEmpresa) + u"," +
                         decimal(session_.gnSucursal) + u")");
}

// Deliberate: the counter is set to the folio taken, not incremented.
void DocumentRows::advance_counter()
{
    connection().execute(u"update fe_folios set nultimofolio=" + vlnFactura_ + u"\rwhere nfolio=" +
                         session_.gClaveFolio);
}

} // namespace tolvex
