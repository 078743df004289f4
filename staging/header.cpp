#include "staging/header.hpp"

#include "core/display_patterns.hpp"
#include "core/numbers.hpp"
#include "core/text.hpp"

namespace tolvex {

void stage_header(Session& session, const Header& header)
{
    session.gRfcCliente = clip(header.Rfc, 20);
    session.gNombreCliente = clip(header.Nombre, 500);
    session.gCalle = clip(header.Calle, 500);
    session.gNumeroExt = clip(header.NumeroExt, 20);
    session.gNumeroInt = clip(header.NumeroInt, 20);
    session.gColonia = clip(header.Colonia, 70);
    session.gLocalidad = clip(header.Localidad, 70);
    session.gEstado = clip(header.Estado, 70);
    session.gMunicipio = clip(header.Municipio, 70);
    session.gPais = clip(header.Pais, 70);
    session.gCodigoPos = clip(header.CodigoPos, 20);
    // The totals are stored unchecked; whoever uses them converts them.
    session.gSubtotal = header.Subtotal;
    session.gDescuento = header.Descuento;
    session.gImpuesto = header.Impuesto;
    session.gTotal = header.Total;
    session.gFormaPago = header.FormaPago;
    session.gClaveFolio = header.ClaveFolio;
    session.gFechaHoraDocto = format(header.FechaHoraDocto, u"yyyy-mm-ddThh:mm:ss");
    session.gRutaDeArchivos = header.RutaDeArchivos;
    session.gIvaRet = amount_as_text(header.IvaRet);
    session.gISRRet = amount_as_text(header.ISRRet);
    session.gMoneda = header.moneda;
    session.gParidad = amount_as_text(header.Paridad);
    session.gDatoAdicional = header.vlDatoAdicional;
    session.gDatoAdicional2 = header.vlDatoAdicional_2;
    session.gDatoAdicional3 = header.vlDatoAdicional_3;
}

} // namespace tolvex
