// Line items of the document being staged.
#pragma once

#include "session/session.hpp"

namespace tolvex {

// The values as a host hands them over, in its order. Views: they live for one call.
struct Line
{
    TextView FolioDocto, TipoDocumento, CveProducto, Producto;
    Currency Cantidad;
    TextView Unidad;
    Currency PrecioSinIva, Iva, Importe, PorcIva;
};

// Appends one line; over-long texts are clipped. Throws Error 6 past the largest 32-bit count.
void stage_line(Session& session, const Line& line);
void empty_lines(Session& session);

} // namespace tolvex
