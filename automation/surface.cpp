#include "automation/surface.hpp"

#include "automation/signature.hpp"
#include "tolvex/classes.hpp"

namespace tolvex::automation {

namespace {

// Any value that can be read as a Boolean asks for the PDF file.
void imprime_docuento(GeneraDocto& self, const Text& FolioDocto, std::int16_t Empresa, std::int16_t Sucursal,
                      bool NotadeCredito, const Text& vlArchivoReporte, const VARIANT& GenerarPDF,
                      std::int16_t vlNumeroDeCopias)
{
    self.ImprimeDocuento(FolioDocto, Empresa, Sucursal, NotadeCredito, vlArchivoReporte,
                         as_boolean(GenerarPDF, L"GenerarPDF"), vlNumeroDeCopias);
}

// The formatter would give every parameter a line of its own.
// clang-format off

Class genera_docto()
{
    return described<GeneraDocto>(
        L"GeneraDocto", L"Emisión, impresión y cancelación de facturas electrónicas",
        {0xe5d12766, 0x6044, 0x4089, {0xac, 0xa0, 0x5c, 0x83, 0xd9, 0x55, 0x4d, 0x3b}},
        {0x6c5d5277, 0xbcea, 0x4933, {0x86, 0xcd, 0x67, 0x84, 0x07, 0xff, 0x35, 0x06}},
        {
            method<&GeneraDocto::GetDatosSucursal>(L"GetDatosSucursal",
                L"Carga la sucursal que emite y el número de su certificado. False si no existe o hubo un error.",
                {{L"vlnEmpresa"}, {L"vlnSucursal"}}),
            method<&GeneraDocto::GetDatosCertificado>(L"GetDatosCertificado",
                L"Carga el certificado de la sucursal. Da True también después de un error a medio camino.",
                {{L"vlnEmpresa"}}),
            method<&GeneraDocto::GetDatosEmpresa>(L"GetDatosEmpresa",
                L"Carga la empresa que emite. Da True también después de un error a medio camino.",
                {{L"vlnEmpresa"}}),
            method<&GeneraDocto::GeneraFacturaElectronica>(L"GeneraFacturaElectronica",
                L"Emite el documento preparado: sello, base de datos y XML. True sólo si todo salió bien.",
                {{L"vlnFactura"}, {L"CtrlFolioInterno", false}, {L"vlTipoDocumento", L"ingreso"},
                 {L"vlTasaDeIva", 16}, {L"vlGeneraAddenda", true}}),
            method<&GeneraDocto::Main>(L"Main", L"No hace nada."),
            method<&imprime_docuento>(L"ImprimeDocuento",
                L"Imprime un documento con un reporte, o lo guarda como PDF en la carpeta de trabajo.",
                {{L"FolioDocto"}, {L"Empresa"}, {L"Sucursal"}, {L"NotadeCredito"}, {L"vlArchivoReporte"},
                 {L"GenerarPDF", false}, {L"vlNumeroDeCopias", 1}}),
            method<&GeneraDocto::ImprimeDocuentoConVisor>(L"ImprimeDocuentoConVisor",
                L"Muestra un documento en el visor.",
                {{L"FolioDocto"}, {L"Empresa"}, {L"Sucursal"}, {L"NotadeCredito"}, {L"vlArchivoReporte"}}),
            method<&GeneraDocto::CancelaFacturaElectronica>(L"CancelaFacturaElectronica",
                L"Marca un documento como cancelado. True si la instrucción corrió, exista o no el documento.",
                {{L"FolioDocto"}, {L"FechaCancelacion"}, {L"Empresa"}, {L"Sucursal"},
                 {L"NotadeCredito", false}}),
            method<&GeneraDocto::BorraFacturaElectronica>(L"BorraFacturaElectronica",
                L"Borra un documento con su receptor y sus renglones.",
                {{L"Empresa"}, {L"Sucursal"}, {L"FolioDocto"}}),
            method<&GeneraDocto::fgObtenFolioFactura>(L"fgObtenFolioFactura",
                L"Deja en FolioFactura el folio que sigue en la serie de Caja; \"0\" y False si no hay más.",
                {{L"Caja"}, {L"FolioFactura"}}),
            method<&GeneraDocto::GeneraFacturaElectronicaDesdeArchivoPlano>(
                L"GeneraFacturaElectronicaDesdeArchivoPlano",
                L"Emite los documentos de un archivo plano; devuelve serie y folio de cada uno, separados por comas.",
                {{L"prtRutaArchivo"}, {L"prtArchivo"}, {L"prtUsuario"}, {L"prtContraseña"}, {L"prtServidor"},
                 {L"prtBaseDeDatos"}}),
        });
}

Class config_fe()
{
    return described<ConfigFE>(
        L"ConfigFE", L"Conexión con la base de datos",
        {0xe2777abb, 0xfd1f, 0x46fb, {0x86, 0xb3, 0xba, 0x7d, 0x5c, 0x79, 0xed, 0xed}},
        {0x7f505f27, 0xabac, 0x431b, {0xbb, 0x94, 0x0c, 0xfc, 0x22, 0xc2, 0x15, 0xab}},
        {
            method<&ConfigFE::AbrirConexion>(L"AbrirConexion",
                L"Abre la conexión con los datos de SetDatosConexion; cierra antes la que esté abierta."),
            method<&ConfigFE::SetDatosConexion, Empty>(L"SetDatosConexion",
                L"Guarda usuario, contraseña, base de datos y servidor para AbrirConexion.",
                {{L"UserBd"}, {L"PswBd"}, {L"Bd"}, {L"ServerBd"}}),
            method<&ConfigFE::CierraConexion>(L"CierraConexion",
                L"Cierra la conexión."),
        });
}

Class cliente()
{
    return described<Cliente>(
        L"Cliente", L"Receptor y encabezado del documento",
        {0x3d0fe61a, 0x2100, 0x466b, {0xa0, 0xd8, 0x4a, 0x2d, 0xe2, 0x69, 0x30, 0x87}},
        {0xd5fb3fc7, 0x65a6, 0x4e4c, {0xa4, 0xc5, 0x69, 0xca, 0x7f, 0x04, 0x3d, 0x83}},
        {
            // Deliberate: "moneda" in lower case among capitalised neighbours; hosts name it so.
            method<&Cliente::SetDatosClientes, Empty>(L"SetDatosClientes",
                L"Prepara receptor y encabezado del documento. Los totales son textos con punto decimal.",
                {{L"Rfc"}, {L"Nombre"}, {L"Calle"}, {L"NumeroExt"}, {L"NumeroInt"}, {L"Colonia"},
                 {L"Localidad"}, {L"Estado"}, {L"Municipio"}, {L"Pais"}, {L"CodigoPos"}, {L"Subtotal"},
                 {L"Descuento"}, {L"Impuesto"}, {L"Total"}, {L"FormaPago"}, {L"ClaveFolio"},
                 {L"FechaHoraDocto"}, {L"RutaDeArchivos"}, {L"IvaRet", 0}, {L"ISRRet", 0},
                 {L"moneda", L"PESOS"}, {L"Paridad", 1}, {L"vlDatoAdicional", L""},
                 {L"vlDatoAdicional_2", L""}, {L"vlDatoAdicional_3", L""}}),
        });
}

Class det_facturas()
{
    return described<DetFacturas>(
        L"DetFacturas", L"Renglones del documento",
        {0xa8e15a8d, 0x7c01, 0x411d, {0xb2, 0xd4, 0xf3, 0x2b, 0xc7, 0xef, 0xf6, 0xd9}},
        {0xb6a53709, 0x6444, 0x44fb, {0xa0, 0xdc, 0x9f, 0xb4, 0x39, 0x7d, 0xcb, 0xa1}},
        {
            method<&DetFacturas::SetDetalleDocto, Empty>(L"SetDetalleDocto",
                L"Agrega un renglón al documento.",
                {{L"FolioDocto"}, {L"TipoDocumento"}, {L"CveProducto"}, {L"Producto"}, {L"Cantidad"},
                 {L"Unidad"}, {L"PrecioSinIva"}, {L"Iva"}, {L"Importe"}, {L"PorcIva"}}),
            method<&DetFacturas::InicializaDetalleFactura, Empty>(L"InicializaDetalleFactura",
                L"Quita todos los renglones."),
        });
}

Class addenda()
{
    return described<Addenda>(
        L"Addenda", L"Valores de la addenda del receptor",
        {0x9606b6e7, 0x26a9, 0x4207, {0xab, 0x93, 0xef, 0x3d, 0x80, 0xe0, 0x8b, 0xd3}},
        {0x525c6e62, 0xfb86, 0x413a, {0xba, 0xac, 0x09, 0xc5, 0x91, 0xe0, 0x51, 0x0b}},
        {
            method<&Addenda::SetAddenda, Empty>(L"SetAddenda",
                L"Agrega un valor de la addenda del documento.",
                {{L"cRfcCte"}, {L"nRama"}, {L"nPadre"}, {L"cValor", L""}}),
            method<&Addenda::InicializaAddenda, Empty>(L"InicializaAddenda",
                L"Quita todos los valores de la addenda, del documento y de sus renglones."),
            method<&Addenda::SetAddendaDet, Empty>(L"SetAddendaDet",
                L"Agrega un valor de la addenda de un renglón.",
                {{L"nRenglon"}, {L"cRfcCte"}, {L"nRama"}, {L"nPadre"}, {L"cValor", L""}}),
        });
}

Class maestros()
{
    return described<Maestros>(
        L"Maestros", L"Mantenimiento de empresas, sucursales, certificados, series y folios",
        {0x26c58df9, 0x663e, 0x483b, {0xb1, 0x7a, 0x4c, 0x45, 0x95, 0x70, 0x97, 0xe1}},
        {0x58ed4cd3, 0x6e4d, 0x415f, {0x98, 0xae, 0xf6, 0xe3, 0x1e, 0x67, 0xb2, 0xdf}},
        {
            method<&Maestros::MuestraEmpresas>(L"MuestraEmpresas",
                L"Abre la ventana de empresas.",
                {{L"UserBd"}, {L"PswBd"}, {L"Bd"}, {L"ServerBd"}}),
            method<&Maestros::MuestraSucursales>(L"MuestraSucursales",
                L"Abre la ventana de sucursales de una empresa.",
                {{L"UserBd"}, {L"PswBd"}, {L"Bd"}, {L"ServerBd"}, {L"Empresa"}}),
            method<&Maestros::MuestraCertificados>(L"MuestraCertificados",
                L"Abre la ventana de certificados de una empresa.",
                {{L"UserBd"}, {L"PswBd"}, {L"Bd"}, {L"ServerBd"}, {L"Empresa"}}),
            method<&Maestros::GeneraReporteDeFoliosUtilizados>(L"GeneraReporteDeFoliosUtilizados",
                L"Abre la ventana del reporte mensual de folios utilizados.",
                {{L"UserBd"}, {L"PswBd"}, {L"Bd"}, {L"ServerBd"}, {L"vlRutaDelReporte", L""}}),
            method<&Maestros::MuestraSeriesyFolios>(L"MuestraSeriesyFolios",
                L"Abre la ventana de series y folios de una empresa.",
                {{L"UserBd"}, {L"PswBd"}, {L"Bd"}, {L"ServerBd"}, {L"Empresa"}}),
        });
}

// clang-format on

} // namespace

const std::vector<Class>& surface()
{
    static const std::vector<Class> classes = {genera_docto(), config_fe(), cliente(),
                                               det_facturas(), addenda(),   maestros()};
    return classes;
}

} // namespace tolvex::automation
