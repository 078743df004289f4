#include "core/values.hpp"
#include "session/session.hpp"
#include "tolvex/tolvex.hpp"

namespace tolvex {

void Cliente::SetDatosClientes(const Text& Rfc, const Text& Nombre, const Text& Calle, const Text& NumeroExt,
                               const Text& NumeroInt, const Text& Colonia, const Text& Localidad,
                               const Text& Estado, const Text& Municipio, const Text& Pais,
                               const Text& CodigoPos, const Text& Subtotal, const Text& Descuento,
                               const Text& Impuesto, const Text& Total, std::int16_t FormaPago,
                               const Text& ClaveFolio, Date FechaHoraDocto, const Text& RutaDeArchivos,
                               Currency IvaRet, Currency ISRRet, const Text& moneda, Currency Paridad,
                               const Text& vlDatoAdicional, const Text& vlDatoAdicional_2,
                               const Text& vlDatoAdicional_3)
{
    Session& staged = session();
    staged.gRfcCliente = clip(Rfc, 20);
    staged.gNombreCliente = clip(Nombre, 500);
    staged.gCalle = clip(Calle, 500);
    staged.gNumeroExt = clip(NumeroExt, 20);
    staged.gNumeroInt = clip(NumeroInt, 20);
    staged.gColonia = clip(Colonia, 70);
    staged.gLocalidad = clip(Localidad, 70);
    staged.gEstado = clip(Estado, 70);
    staged.gMunicipio = clip(Municipio, 70);
    staged.gPais = clip(Pais, 70);
    staged.gCodigoPos = clip(CodigoPos, 20);
    // The totals are stored unchecked; whoever uses them converts them.
    staged.gSubtotal = Subtotal;
    staged.gDescuento = Descuento;
    staged.gImpuesto = Impuesto;
    staged.gTotal = Total;
    staged.gFormaPago = FormaPago;
    staged.gClaveFolio = ClaveFolio;
    staged.gFechaHoraDocto = format(FechaHoraDocto, u"yyyy-mm-ddThh:mm:ss");
    staged.gRutaDeArchivos = RutaDeArchivos;
    staged.gIvaRet = amount_as_text(IvaRet);
    staged.gISRRet = amount_as_text(ISRRet);
    staged.gMoneda = moneda;
    staged.gParidad = amount_as_text(Paridad);
    staged.gDatoAdicional = vlDatoAdicional;
    staged.gDatoAdicional2 = vlDatoAdicional_2;
    staged.gDatoAdicional3 = vlDatoAdicional_3;
}

} // namespace tolvex
