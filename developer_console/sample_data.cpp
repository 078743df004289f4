#include "developer_console/sample_data.hpp"

namespace tolvex::developer_console {

std::map<TextView, Text> sample_data(const Text& working_folder, const Text& layout)
{
    return {
        {u"Servidor", u"sqlite:"},
        {u"Base", working_folder + u"\\tolvex.db"},
        {u"Empresa", u"1"},
        {u"Sucursal", u"1"},
        {u"Rfc", u"PEGM-800101-AB1"},
        {u"Nombre", u"María Peña Güemes"},
        {u"Calle", u"Avenida Niños Héroes"},
        {u"NumeroExt", u"120"},
        {u"NumeroInt", u"4 B"},
        {u"Colonia", u"Del Valle"},
        {u"Localidad", u"Ciudad de México"},
        {u"Municipio", u"Benito Juárez"},
        {u"Estado", u"Distrito Federal"},
        {u"Pais", u"México"},
        {u"CodigoPos", u"03100"},
        {u"Subtotal", u"1150.00"},
        {u"Descuento", u"0.00"},
        {u"Impuesto", u"184.00"},
        {u"Total", u"1334.00"},
        {u"FormaPago", u"1"},
        {u"ClaveFolio", u"1"},
        {u"RutaDeArchivos", working_folder},
        {u"IvaRet", u"0"},
        {u"ISRRet", u"0"},
        {u"moneda", u"PESOS"},
        {u"Paridad", u"1"},
        {u"Renglones", u"CAF-01|Café de altura, 1 kg|5|KG|180|144|900|16\r\n"
                       u"PAN-07|Pan de muerto \"tradicional\"|20|PZA|12.5|40|250|16"},
        {u"RfcAddenda", u"DEM010203ABC"},
        {u"NodosDeAddenda", u"2|1|OC-2011-0457"},
        {u"NodosDeRenglones", u"1|5|4|7501000000017\r\n2|5|4|7501000000024"},
        {u"Folio", u"1"},
        {u"Tipo", u"ingreso"},
        {u"TasaDeIva", u"16"},
        {u"CtrlFolioInterno", u"1"},
        {u"Caja", u"1"},
        {u"Reporte", layout},
        {u"NumeroDeCopias", u"1"},
        {u"GenerarPDF", u"1"},
        {u"Archivo", u"factura.txt"},
    };
}

} // namespace tolvex::developer_console
