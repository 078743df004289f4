#include "classes/call.hpp"
#include "staging/lines.hpp"
#include "tolvex/classes.hpp"

namespace tolvex {

void DetFacturas::SetDetalleDocto(const Text& FolioDocto, const Text& TipoDocumento, const Text& CveProducto,
                                  const Text& Producto, Currency Cantidad, const Text& Unidad,
                                  Currency PrecioSinIva, Currency Iva, Currency Importe, Currency PorcIva)
{
    stage_line(begin_call(), {FolioDocto, TipoDocumento, CveProducto, Producto, Cantidad, Unidad,
                              PrecioSinIva, Iva, Importe, PorcIva});
}

void DetFacturas::InicializaDetalleFactura() { empty_lines(begin_call()); }

} // namespace tolvex
