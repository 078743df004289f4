// Receiver, totals and header of the document being staged.
#pragma once

#include "session/session.hpp"

namespace tolvex {

// The values as a host hands them over, in its order. Views: they live for one call.
struct Header
{
    TextView Rfc, Nombre, Calle, NumeroExt, NumeroInt, Colonia, Localidad, Estado, Municipio, Pais, CodigoPos;
    TextView Subtotal, Descuento, Impuesto, Total; // decimal texts
    std::int16_t FormaPago = 1;                    // 1 cash, anything else credit
    TextView ClaveFolio;
    Date FechaHoraDocto;
    TextView RutaDeArchivos;
    Currency IvaRet = 0, ISRRet = 0;
    TextView moneda = u"PESOS";
    Currency Paridad = 1;
    TextView vlDatoAdicional = u"", vlDatoAdicional_2 = u"", vlDatoAdicional_3 = u"";
};

// Replaces all 26 values of the session's receiver and header; over-long texts are clipped.
void stage_header(Session& session, const Header& header);

} // namespace tolvex
