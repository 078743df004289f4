#include "staging/lines.hpp"

#include "core/numbers.hpp"
#include "core/text.hpp"
#include "staging/staged_rows.hpp"

namespace tolvex {

void stage_line(Session& session, const Line& line)
{
    DetalleRow& row = add_row(session.gDetalle, session.gNumDetalle);
    row.FolioDocto = clip(line.FolioDocto, 20);
    row.TipoDocumento = clip(line.TipoDocumento, 1);
    row.Producto = clip(line.Producto, 2000);
    row.Cantidad = amount_as_text(line.Cantidad);
    row.Unidad = clip(line.Unidad, 15);
    row.PrecioSinIva = amount_as_text(line.PrecioSinIva);
    row.Iva = amount_as_text(line.Iva);
    row.Importe = amount_as_text(line.Importe);
    row.PorcIva = amount_as_text(line.PorcIva);
    row.FolioDoctoEntero = line.FolioDocto; // Deliberate: the folio key is stored twice, here unclipped.
    row.CveProducto = clip(line.CveProducto, 10);
}

void empty_lines(Session& session) { empty_rows(session.gDetalle, session.gNumDetalle); }

} // namespace tolvex
