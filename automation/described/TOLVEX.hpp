// The automation interfaces of TOLVEX for C++ hosts. Every argument goes by reference;
// optional ones must be given too (docs/guia-de-integracion.md lists their defaults).
#pragma once

#include <windows.h>

#include <oaidl.h>

namespace TOLVEX {

// Emisión, impresión y cancelación de facturas electrónicas: TOLVEX.GeneraDocto
class DECLSPEC_UUID("E5D12766-6044-4089-ACA0-5C83D9554D3B") GeneraDocto;
struct DECLSPEC_UUID("6C5D5277-BCEA-4933-86CD-678407FF3506") _GeneraDocto : public IDispatch
{
    // Carga la sucursal que emite y el número de su certificado. False si no existe o hubo un error.
    virtual HRESULT STDMETHODCALLTYPE GetDatosSucursal(SHORT* vlnEmpresa, SHORT* vlnSucursal, VARIANT_BOOL* result) = 0;
    // Carga el certificado de la sucursal. Da True también después de un error a medio camino.
    virtual HRESULT STDMETHODCALLTYPE GetDatosCertificado(SHORT* vlnEmpresa, VARIANT_BOOL* result) = 0;
    // Carga la empresa que emite. Da True también después de un error a medio camino.
    virtual HRESULT STDMETHODCALLTYPE GetDatosEmpresa(SHORT* vlnEmpresa, VARIANT_BOOL* result) = 0;
    // Emite el documento preparado: sello, base de datos y XML. True sólo si todo salió bien.
    virtual HRESULT STDMETHODCALLTYPE GeneraFacturaElectronica(BSTR* vlnFactura, VARIANT_BOOL* CtrlFolioInterno, BSTR* vlTipoDocumento, SHORT* vlTasaDeIva, VARIANT_BOOL* vlGeneraAddenda, VARIANT_BOOL* result) = 0;
    // No hace nada.
    virtual HRESULT STDMETHODCALLTYPE Main() = 0;
    // Imprime un documento con un reporte, o lo guarda como PDF en la carpeta de trabajo.
    virtual HRESULT STDMETHODCALLTYPE ImprimeDocuento(BSTR* FolioDocto, SHORT* Empresa, SHORT* Sucursal, VARIANT_BOOL* NotadeCredito, BSTR* vlArchivoReporte, VARIANT* GenerarPDF, SHORT* vlNumeroDeCopias) = 0;
    // Muestra un documento en el visor.
    virtual HRESULT STDMETHODCALLTYPE ImprimeDocuentoConVisor(BSTR* FolioDocto, SHORT* Empresa, SHORT* Sucursal, VARIANT_BOOL* NotadeCredito, BSTR* vlArchivoReporte) = 0;
    // Marca un documento como cancelado. True si la instrucción corrió, exista o no el documento.
    virtual HRESULT STDMETHODCALLTYPE CancelaFacturaElectronica(BSTR* FolioDocto, DATE* FechaCancelacion, SHORT* Empresa, SHORT* Sucursal, VARIANT_BOOL* NotadeCredito, VARIANT_BOOL* result) = 0;
    // Borra un documento con su receptor y sus renglones.
    virtual HRESULT STDMETHODCALLTYPE BorraFacturaElectronica(SHORT* Empresa, SHORT* Sucursal, BSTR* FolioDocto, VARIANT_BOOL* result) = 0;
    // Deja en FolioFactura el folio que sigue en la serie de Caja; "0" y False si no hay más.
    virtual HRESULT STDMETHODCALLTYPE fgObtenFolioFactura(BSTR* Caja, BSTR* FolioFactura, VARIANT_BOOL* result) = 0;
    // Emite los documentos de un archivo plano; devuelve serie y folio de cada uno, separados por comas.
    virtual HRESULT STDMETHODCALLTYPE GeneraFacturaElectronicaDesdeArchivoPlano(BSTR* prtRutaArchivo, BSTR* prtArchivo, BSTR* prtUsuario, BSTR* prtContraseña, BSTR* prtServidor, BSTR* prtBaseDeDatos, BSTR* result) = 0;
};

// Conexión con la base de datos: TOLVEX.ConfigFE
class DECLSPEC_UUID("E2777ABB-FD1F-46FB-86B3-BA7D5C79EDED") ConfigFE;
struct DECLSPEC_UUID("7F505F27-ABAC-431B-BB94-0CFC22C215AB") _ConfigFE : public IDispatch
{
    // Abre la conexión con los datos de SetDatosConexion; cierra antes la que esté abierta.
    virtual HRESULT STDMETHODCALLTYPE AbrirConexion(VARIANT_BOOL* result) = 0;
    // Guarda usuario, contraseña, base de datos y servidor para AbrirConexion.
    virtual HRESULT STDMETHODCALLTYPE SetDatosConexion(BSTR* UserBd, BSTR* PswBd, BSTR* Bd, BSTR* ServerBd, VARIANT* result) = 0;
    // Cierra la conexión.
    virtual HRESULT STDMETHODCALLTYPE CierraConexion(VARIANT_BOOL* result) = 0;
};

// Receptor y encabezado del documento: TOLVEX.Cliente
class DECLSPEC_UUID("3D0FE61A-2100-466B-A0D8-4A2DE2693087") Cliente;
struct DECLSPEC_UUID("D5FB3FC7-65A6-4E4C-A4C5-69CA7F043D83") _Cliente : public IDispatch
{
    // Prepara receptor y encabezado del documento. Los totales son textos con punto decimal.
    virtual HRESULT STDMETHODCALLTYPE SetDatosClientes(BSTR* Rfc, BSTR* Nombre, BSTR* Calle, BSTR* NumeroExt, BSTR* NumeroInt, BSTR* Colonia, BSTR* Localidad, BSTR* Estado, BSTR* Municipio, BSTR* Pais, BSTR* CodigoPos, BSTR* Subtotal, BSTR* Descuento, BSTR* Impuesto, BSTR* Total, SHORT* FormaPago, BSTR* ClaveFolio, DATE* FechaHoraDocto, BSTR* RutaDeArchivos, CY* IvaRet, CY* ISRRet, BSTR* moneda, CY* Paridad, BSTR* vlDatoAdicional, BSTR* vlDatoAdicional_2, BSTR* vlDatoAdicional_3, VARIANT* result) = 0;
};

// Renglones del documento: TOLVEX.DetFacturas
class DECLSPEC_UUID("A8E15A8D-7C01-411D-B2D4-F32BC7EFF6D9") DetFacturas;
struct DECLSPEC_UUID("B6A53709-6444-44FB-A0DC-9FB4397DCBA1") _DetFacturas : public IDispatch
{
    // Agrega un renglón al documento.
    virtual HRESULT STDMETHODCALLTYPE SetDetalleDocto(BSTR* FolioDocto, BSTR* TipoDocumento, BSTR* CveProducto, BSTR* Producto, CY* Cantidad, BSTR* Unidad, CY* PrecioSinIva, CY* Iva, CY* Importe, CY* PorcIva, VARIANT* result) = 0;
    // Quita todos los renglones.
    virtual HRESULT STDMETHODCALLTYPE InicializaDetalleFactura(VARIANT* result) = 0;
};

// Valores de la addenda del receptor: TOLVEX.Addenda
class DECLSPEC_UUID("9606B6E7-26A9-4207-AB93-EF3D80E08BD3") Addenda;
struct DECLSPEC_UUID("525C6E62-FB86-413A-BAAC-09C591E0510B") _Addenda : public IDispatch
{
    // Agrega un valor de la addenda del documento.
    virtual HRESULT STDMETHODCALLTYPE SetAddenda(BSTR* cRfcCte, SHORT* nRama, SHORT* nPadre, BSTR* cValor, VARIANT* result) = 0;
    // Quita todos los valores de la addenda, del documento y de sus renglones.
    virtual HRESULT STDMETHODCALLTYPE InicializaAddenda(VARIANT* result) = 0;
    // Agrega un valor de la addenda de un renglón.
    virtual HRESULT STDMETHODCALLTYPE SetAddendaDet(LONG* nRenglon, BSTR* cRfcCte, SHORT* nRama, SHORT* nPadre, BSTR* cValor, VARIANT* result) = 0;
};

// Mantenimiento de empresas, sucursales, certificados, series y folios: TOLVEX.Maestros
class DECLSPEC_UUID("26C58DF9-663E-483B-B17A-4C45957097E1") Maestros;
struct DECLSPEC_UUID("58ED4CD3-6E4D-415F-98AE-F6E31E67B2DF") _Maestros : public IDispatch
{
    // Abre la ventana de empresas.
    virtual HRESULT STDMETHODCALLTYPE MuestraEmpresas(BSTR* UserBd, BSTR* PswBd, BSTR* Bd, BSTR* ServerBd) = 0;
    // Abre la ventana de sucursales de una empresa.
    virtual HRESULT STDMETHODCALLTYPE MuestraSucursales(BSTR* UserBd, BSTR* PswBd, BSTR* Bd, BSTR* ServerBd, SHORT* Empresa) = 0;
    // Abre la ventana de certificados de una empresa.
    virtual HRESULT STDMETHODCALLTYPE MuestraCertificados(BSTR* UserBd, BSTR* PswBd, BSTR* Bd, BSTR* ServerBd, SHORT* Empresa) = 0;
    // Abre la ventana del reporte mensual de folios utilizados.
    virtual HRESULT STDMETHODCALLTYPE GeneraReporteDeFoliosUtilizados(BSTR* UserBd, BSTR* PswBd, BSTR* Bd, BSTR* ServerBd, BSTR* vlRutaDelReporte) = 0;
    // Abre la ventana de series y folios de una empresa.
    virtual HRESULT STDMETHODCALLTYPE MuestraSeriesyFolios(BSTR* UserBd, BSTR* PswBd, BSTR* Bd, BSTR* ServerBd, SHORT* Empresa) = 0;
};

} // namespace TOLVEX

#ifdef __CRT_UUID_DECL
__CRT_UUID_DECL(TOLVEX::GeneraDocto, 0xe5d12766, 0x6044, 0x4089, 0xac, 0xa0, 0x5c, 0x83, 0xd9, 0x55, 0x4d, 0x3b)
__CRT_UUID_DECL(TOLVEX::_GeneraDocto, 0x6c5d5277, 0xbcea, 0x4933, 0x86, 0xcd, 0x67, 0x84, 0x07, 0xff, 0x35, 0x06)
__CRT_UUID_DECL(TOLVEX::ConfigFE, 0xe2777abb, 0xfd1f, 0x46fb, 0x86, 0xb3, 0xba, 0x7d, 0x5c, 0x79, 0xed, 0xed)
__CRT_UUID_DECL(TOLVEX::_ConfigFE, 0x7f505f27, 0xabac, 0x431b, 0xbb, 0x94, 0x0c, 0xfc, 0x22, 0xc2, 0x15, 0xab)
__CRT_UUID_DECL(TOLVEX::Cliente, 0x3d0fe61a, 0x2100, 0x466b, 0xa0, 0xd8, 0x4a, 0x2d, 0xe2, 0x69, 0x30, 0x87)
__CRT_UUID_DECL(TOLVEX::_Cliente, 0xd5fb3fc7, 0x65a6, 0x4e4c, 0xa4, 0xc5, 0x69, 0xca, 0x7f, 0x04, 0x3d, 0x83)
__CRT_UUID_DECL(TOLVEX::DetFacturas, 0xa8e15a8d, 0x7c01, 0x411d, 0xb2, 0xd4, 0xf3, 0x2b, 0xc7, 0xef, 0xf6, 0xd9)
__CRT_UUID_DECL(TOLVEX::_DetFacturas, 0xb6a53709, 0x6444, 0x44fb, 0xa0, 0xdc, 0x9f, 0xb4, 0x39, 0x7d, 0xcb, 0xa1)
__CRT_UUID_DECL(TOLVEX::Addenda, 0x9606b6e7, 0x26a9, 0x4207, 0xab, 0x93, 0xef, 0x3d, 0x80, 0xe0, 0x8b, 0xd3)
__CRT_UUID_DECL(TOLVEX::_Addenda, 0x525c6e62, 0xfb86, 0x413a, 0xba, 0xac, 0x09, 0xc5, 0x91, 0xe0, 0x51, 0x0b)
__CRT_UUID_DECL(TOLVEX::Maestros, 0x26c58df9, 0x663e, 0x483b, 0xb1, 0x7a, 0x4c, 0x45, 0x95, 0x70, 0x97, 0xe1)
__CRT_UUID_DECL(TOLVEX::_Maestros, 0x58ed4cd3, 0x6e4d, 0x415f, 0x98, 0xae, 0xf6, 0xe3, 0x1e, 0x67, 0xb2, 0xdf)
#endif
