#include "classes/call.hpp"
#include "staging/header.hpp"
#include "tolvex/classes.hpp"

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
    stage_header(begin_call(), {Rfc,
                                Nombre,
                                Calle,
                                NumeroExt,
                                NumeroInt,
                                Colonia,
                                Localidad,
                                Estado,
                                Municipio,
                                Pais,
                                CodigoPos,
                                Subtotal,
                                Descuento,
                                Impuesto,
                                Total,
                                FormaPago,
                                ClaveFolio,
                                FechaHoraDocto,
                                RutaDeArchivos,
                                IvaRet,
                                ISRRet,
                                moneda,
                                Paridad,
                                vlDatoAdicional,
                                vlDatoAdicional_2,
                                vlDatoAdicional_3});
}

} // namespace tolvex
