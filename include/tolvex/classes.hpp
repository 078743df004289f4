// The six public classes. Their objects hold nothing: all share the session of the process, also copies and
// those that were moved from. Each call begins without a last error (last_error()).
#pragma once

#include "tolvex/types.hpp"

namespace tolvex {

// Connection to the database that holds master data and documents.
class TOLVEX_API ConfigFE
{
public:
    // Opens the shared connection with the data of SetDatosConexion, closing it first if it is open. Always
    // true; throws Error with the driver's description when the database cannot be reached.
    bool AbrirConexion();
    // Stores user, password, database and server; "sqlite:" as server and a file path as database choose the
    // embedded database.
    void SetDatosConexion(const Text& UserBd, const Text& PswBd, const Text& Bd, const Text& ServerBd);
    // Closes the shared connection; always true.
    bool CierraConexion();
};

// Receiver, totals and header of the document being staged.
class TOLVEX_API Cliente
{
public:
    // Replaces all 26 values. FormaPago 1 is cash, anything else credit; ClaveFolio is the key of the folio
    // range; RutaDeArchivos the working folder with openssl and pkey.key.pem. Totals are decimal texts with
    // "." as point.
    void SetDatosClientes(const Text& Rfc, const Text& Nombre, const Text& Calle, const Text& NumeroExt,
                          const Text& NumeroInt, const Text& Colonia, const Text& Localidad,
                          const Text& Estado, const Text& Municipio, const Text& Pais, const Text& CodigoPos,
                          const Text& Subtotal, const Text& Descuento, const Text& Impuesto,
                          const Text& Total, std::int16_t FormaPago, const Text& ClaveFolio,
                          Date FechaHoraDocto, const Text& RutaDeArchivos, Currency IvaRet = 0,
                          Currency ISRRet = 0, const Text& moneda = u"PESOS", Currency Paridad = 1,
                          const Text& vlDatoAdicional = u"", const Text& vlDatoAdicional_2 = u"",
                          const Text& vlDatoAdicional_3 = u"");
};

// Line items of the document being staged.
class TOLVEX_API DetFacturas
{
public:
    // Appends one line. Throws Error 6 past the largest 32-bit count.
    void SetDetalleDocto(const Text& FolioDocto, const Text& TipoDocumento, const Text& CveProducto,
                         const Text& Producto, Currency Cantidad, const Text& Unidad, Currency PrecioSinIva,
                         Currency Iva, Currency Importe, Currency PorcIva);
    // Empties the collection.
    void InicializaDetalleFactura();
};

// Values for the receiver's own XML block, keyed by node (nRama), parent node (nPadre) and, for lines, line
// number.
class TOLVEX_API Addenda
{
public:
    void SetAddenda(const Text& cRfcCte, std::int16_t nRama, std::int16_t nPadre, const Text& cValor = u"");
    // Empties header and line values together.
    void InicializaAddenda();
    void SetAddendaDet(std::int32_t nRenglon, const Text& cRfcCte, std::int16_t nRama, std::int16_t nPadre,
                       const Text& cValor = u"");
};

// Issuing, cancelling, deleting and printing of documents.
class TOLVEX_API GeneraDocto
{
public:
    // Loads the branch and its certificate number; false when there is none or on an error: see last_error().
    bool GetDatosSucursal(std::int16_t vlnEmpresa, std::int16_t vlnSucursal);
    // Loads the certificate that GetDatosSucursal named. True also after an error half-way: see last_error().
    bool GetDatosCertificado(std::int16_t vlnEmpresa);
    // Loads the company. True also after an error half-way: see last_error().
    bool GetDatosEmpresa(std::int16_t vlnEmpresa);
    // Issues the staged document: seal, database rows, XML file in RutaDeArchivos\Facturas, named by series
    // and the number that begins at the folio's first zero; an earlier file of that name moves to its folder
    // Anteriores. One at a time per database and working folder, waiting 15 seconds at most. True only when
    // every step succeeded; last_error() tells how far it got. What openssl does is not noticed: when it or
    // the key fails, True comes with an empty seal or with one that an earlier failure left, so look at the
    // stored one (FE_VENTAS_RESUMEN.cSelloDigital, "sello" in the XML). With CtrlFolioInterno the folio is
    // taken from the range and written into vlnFactura. vlTipoDocumento "ingreso" (any case) is an invoice,
    // anything else a credit note.
    bool GeneraFacturaElectronica(Text& vlnFactura, bool CtrlFolioInterno = false,
                                  const Text& vlTipoDocumento = u"ingreso", std::int16_t vlTasaDeIva = 16,
                                  bool vlGeneraAddenda = true);
    // Does nothing.
    void Main();
    // Prints a document from a report layout, or exports it as PDF.
    void ImprimeDocuento(const Text& FolioDocto, std::int16_t Empresa, std::int16_t Sucursal,
                         bool NotadeCredito, const Text& vlArchivoReporte, bool GenerarPDF = false,
                         std::int16_t vlNumeroDeCopias = 1);
    // Shows a document in the viewer.
    void ImprimeDocuentoConVisor(const Text& FolioDocto, std::int16_t Empresa, std::int16_t Sucursal,
                                 bool NotadeCredito, const Text& vlArchivoReporte);
    // Marks a document as cancelled on the day of FechaCancelacion; true when the statement ran, also when no
    // document has that folio, which last_error() tells.
    bool CancelaFacturaElectronica(const Text& FolioDocto, Date FechaCancelacion, std::int16_t Empresa,
                                   std::int16_t Sucursal, bool NotadeCredito = false);
    // Deletes a document with its receiver and lines; true when the statements ran, also when no document has
    // that folio, which last_error() tells.
    bool BorraFacturaElectronica(std::int16_t Empresa, std::int16_t Sucursal, const Text& FolioDocto);
    // Next folio of the range Caja into FolioFactura ("0" and false when the range is used up or missing).
    // Throws Error when the database fails.
    bool fgObtenFolioFactura(const Text& Caja, Text& FolioFactura);
    // Issues the documents of a flat file (docs/archivo-plano.md) on a connection of its own; returns series
    // and folio of each, joined by ",". Stops with a message at the first record or document that fails.
    Text GeneraFacturaElectronicaDesdeArchivoPlano(const Text& prtRutaArchivo, const Text& prtArchivo,
                                                   const Text& prtUsuario, const Text& prtContraseña,
                                                   const Text& prtServidor, const Text& prtBaseDeDatos);
};

// Maintenance windows of the master data; each call opens a connection of its own that becomes the shared
// one.
class TOLVEX_API Maestros
{
public:
    void MuestraEmpresas(const Text& UserBd, const Text& PswBd, const Text& Bd, const Text& ServerBd);
    void MuestraSucursales(const Text& UserBd, const Text& PswBd, const Text& Bd, const Text& ServerBd,
                           std::int16_t Empresa);
    void MuestraCertificados(const Text& UserBd, const Text& PswBd, const Text& Bd, const Text& ServerBd,
                             std::int16_t Empresa);
    void GeneraReporteDeFoliosUtilizados(const Text& UserBd, const Text& PswBd, const Text& Bd,
                                         const Text& ServerBd, const Text& vlRutaDelReporte = u"");
    void MuestraSeriesyFolios(const Text& UserBd, const Text& PswBd, const Text& Bd, const Text& ServerBd,
                              std::int16_t Empresa);
};

} // namespace tolvex
