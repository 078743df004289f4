// The process-wide session state behind the public classes, under its documented names.
#pragma once

#include "database/connection.hpp"

#include <vector>

namespace tolvex {

// One staged line item, in the order of its fields.
struct DetalleRow
{
    Text FolioDocto, TipoDocumento, Producto, Cantidad, Unidad, PrecioSinIva, Iva, Importe, PorcIva,
        FolioDoctoEntero, CveProducto;
};

// One staged value of the addenda, and one of a line of it.
struct AddendaRow
{
    Text cRfcCte, nRama, nPadre, cValor;
};
struct AddendaDetRow
{
    Text cRfcCte, nRama, nPadre, cValor, nRenglon;
};

struct Session
{
    // Connection settings and the shared connection.
    Text gUserBd, gPswBd, gBd, gServerBd;
    std::shared_ptr<Connection> gConexion;

    // Company.
    std::int16_t gnEmpresa = 0;
    Text gEmpNombre, gEmpCalle, gEmpNumExterior, gEmpNumInterior, gEmpColonia, gEmpLocalidad, gEmpMunicipio,
        gEmpEstado, gEmpPais, gEmpCodigoPostal, gEmpTelefono, gEmpRfc, gEmpCurp;
    bool gMostrarVersion = false, gMostrarSerie = false, gMostrarAnnoAprobacion = false,
         gMostrarTipoDeComprobante = false, gMostrarFormadePago = false, gMostrarCondicionesDePago = false,
         gMostrarSubtotal = false, gMostrarDescuento = false, gMostrarTotal = false,
         gMostrarNameSpacePosition = false, gMostrarxmlns = false, gMostrarxmlnsxsi = false,
         gMostrarxsischemaLocation = false;

    // Branch.
    std::int16_t gnSucursal = 0;
    Text gSucNombre, gSucCalle, gSucNumExterior, gSucNumInterior, gSucColonia, gSucLocalidad, gSucMunicipio,
        gSucEstado, gSucPais, gSucCodigoPostal, gSucTelefono, gSucRfc, gSucCurp;
    std::int16_t gnCertificado = 0;

    // Certificate.
    Text gRutaCertificado, gRutaLlavePrivada;
    Date gVigenciaDesde, gVigenciaHasta;
    Text gVigenciaDesdeTxt, gVigenciaHastaTxt, gSerialCertificado, gSerieCertificado, gCertificado;

    // Folio range.
    Text gDocumento, gFolio, gSerie, gNumeroAprobacion;
    std::int16_t gAnnoAprobacion = 0;
    std::int32_t gFolioDesde = 0, gFolioHasta = 0;
    Text gStatusFolio, gEsquema;

    // Receiver and header of the staged document. Amounts are decimal texts.
    Text gRfcCliente, gNombreCliente, gCalle, gNumeroExt, gNumeroInt, gColonia, gLocalidad, gEstado,
        gMunicipio, gPais, gCodigoPos, gSubtotal, gDescuento, gImpuesto, gTotal;
    std::int16_t gFormaPago = 0;
    Text gClaveFolio, gFechaHoraDocto, gRutaDeArchivos, gIvaRet, gISRRet, gMoneda, gParidad, gDatoAdicional,
        gDatoAdicional2, gDatoAdicional3;
    Text gSubtotalDD; // subtotal after discount, set while issuing

    // Staged rows are numbered from 1. Only the count says how many are valid: an emptied table keeps nothing
    // that a reader may see.
    std::vector<DetalleRow> gDetalle;
    std::int32_t gNumDetalle = 0;
    std::vector<AddendaRow> gAddenda;
    std::int32_t gNumAddenda = 0;
    std::vector<AddendaDetRow> gAddendaDet;
    std::int32_t gNumAddendaDet = 0;
};

// The one session of the process.
Session& session();

// The shared connection, created on first use and never released.
Connection& shared_connection(Session& session);

} // namespace tolvex
