#include "staging/staged_rows.hpp"
#include "tolvex/tolvex.hpp"

namespace tolvex {

void DetFacturas::SetDetalleDocto(const Text& FolioDocto, const Text& TipoDocumento, const Text& CveProducto,
                                  const Text& Producto, Currency Cantidad, const Text& Unidad,
                                  Currency PrecioSinIva, Currency Iva, Currency Importe, Currency PorcIva)
{
    auto& line = add_row<11>(session().gDetalle, session().gNumDetalle);
    line[1] = clip(FolioDocto, 20);
    line[2] = clip(TipoDocumento, 1);
    line[3] = clip(Producto, 2000);
    line[4] = amount_as_text(Cantidad);
    line[5] = clip(Unidad, 15);
    line[6] = amount_as_text(PrecioSinIva);
    line[7] = amount_as_text(Iva);
    line[8] = amount_as_text(Importe);
    line[9] = amount_as_text(PorcIva);
    line[10] = FolioDocto; // Deliberate: the folio key is stored twice, here unclipped.
    line[11] = clip(CveProducto, 10);
}

void DetFacturas::InicializaDetalleFactura() { empty_rows<11>(session().gDetalle, session().gNumDetalle); }

} // namespace tolvex
