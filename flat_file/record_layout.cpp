#include "flat_file/record_layout.hpp"

#include <algorithm>

namespace tolvex {

namespace {

constexpr bool optional = true;

constexpr Field emisor[] = {{u"nEmpresa", Kind::int16}, {u"nSucursal", Kind::int16}};

constexpr Field cliente[] = {{u"Rfc", Kind::text},
                             {u"Nombre", Kind::text},
                             {u"Calle", Kind::text, optional},
                             {u"NumeroExt", Kind::text, optional},
                             {u"NumeroInt", Kind::text, optional},
                             {u"Colonia", Kind::text, optional},
                             {u"Localidad", Kind::text, optional},
                             {u"Estado", Kind::text, optional},
                             {u"Municipio", Kind::text, optional},
                             {u"Pais", Kind::text},
                             {u"CodigoPos", Kind::text, optional},
                             {u"Subtotal", Kind::amount},
                             {u"Descuento", Kind::amount},
                             {u"Impuesto", Kind::amount},
                             {u"Total", Kind::amount},
                             {u"FormaPago", Kind::int16},
                             {u"ClaveFolio", Kind::int32},
                             {u"FechaHoraDocto", Kind::date},
                             {u"RutaDeArchivos", Kind::folder},
                             {u"IvaRet", Kind::amount, optional},
                             {u"ISRRet", Kind::amount, optional},
                             {u"moneda", Kind::text, optional},
                             {u"Paridad", Kind::amount, optional},
                             {u"vlDatoAdicional", Kind::text, optional},
                             {u"vlDatoAdicional_2", Kind::text, optional},
                             {u"vlDatoAdicional_3", Kind::text, optional}};

constexpr Field detalle[] = {{u"FolioDocto", Kind::text, optional},
                             {u"TipoDocumento", Kind::text, optional},
                             {u"CveProducto", Kind::text, optional},
                             {u"Producto", Kind::text},
                             {u"Cantidad", Kind::amount},
                             {u"Unidad", Kind::text},
                             {u"PrecioSinIva", Kind::amount},
                             {u"Iva", Kind::amount},
                             {u"Importe", Kind::amount},
                             {u"PorcIva", Kind::amount}};

constexpr Field addenda[] = {{u"cRfcCte", Kind::addenda_text},
                             {u"nRama", Kind::int16},
                             {u"nPadre", Kind::int16},
                             {u"cValor", Kind::addenda_text}};

constexpr Field addendadet[] = {{u"nRenglon", Kind::int32},
                                {u"cRfcCte", Kind::addenda_text},
                                {u"nRama", Kind::int16},
                                {u"nPadre", Kind::int16},
                                {u"cValor", Kind::addenda_text}};

constexpr Field emite[] = {{u"vlnFactura", Kind::text, optional},
                           {u"CtrlFolioInterno", Kind::boolean, optional},
                           {u"vlTipoDocumento", Kind::document_kind, optional},
                           {u"vlTasaDeIva", Kind::int16, optional},
                           {u"vlGeneraAddenda", Kind::boolean, optional}};

constexpr RecordLayout layouts[] = {{u"EMISOR", emisor, 2},         {u"CLIENTE", cliente, 19},
                                    {u"DETALLE", detalle, 10},      {u"ADDENDA", addenda, 3},
                                    {u"ADDENDADET", addendadet, 4}, {u"EMITE", emite, 0}};

} // namespace

const RecordLayout* layout_of(TextView name)
{
    const auto found = std::find_if(std::begin(layouts), std::end(layouts),
                                    [&](const RecordLayout& layout) { return layout.name == name; });
    return found == std::end(layouts) ? nullptr : found;
}

} // namespace tolvex
