// The process-wide session state behind the public classes, under its documented names.
#pragma once

#include "database/connection.hpp"

#include <array>

namespace tolvex {

// Lines of texts numbered from 1, each with the same count of fields, also numbered from 1. Only the count
// says how many lines are valid: an emptied table keeps nothing that a reader may see.
template <std::size_t Fields>
using StagedRows = std::vector<std::array<Text, Fields + 1>>;

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

    // Line items: folio key clipped, kind, product, quantity, unit, price, VAT, amount, VAT percent, folio
    // key whole, product code.
    StagedRows<11> gDetalle;
    std::int32_t gNumDetalle = 0;

    // Addenda: receiver, node, parent, value, and for lines the line number.
    StagedRows<4> gAddenda;
    std::int32_t gNumAddenda = 0;
    StagedRows<5> gAddendaDet;
    std::int32_t gNumAddendaDet = 0;
};

// The one session of the process.
Session& session();

// The shared connection, created on first use and never released.
Connection& shared_connection(Session& session);

} // namespace tolvex
