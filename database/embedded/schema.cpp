#include "database/embedded/schema.hpp"

namespace tolvex {

// Texts compare without regard to case, as on the server. Keys that statements take as "highest plus one" are
// plain keys; the document's nID alone is handed out by the database, which also takes the highest plus one.
std::string_view embedded_schema()
{
    return R"(
CREATE TABLE FE_EMPRESAS (
    nEmpresa smallint NOT NULL PRIMARY KEY,
    cNombre nvarchar(500) COLLATE NOCASE,
    cCalle nvarchar(500) COLLATE NOCASE,
    cNumExterior nvarchar(50) COLLATE NOCASE,
    cNumInterior nvarchar(50) COLLATE NOCASE,
    cColonia nvarchar(100) COLLATE NOCASE,
    cLocalidad nvarchar(100) COLLATE NOCASE,
    cMunicipio nvarchar(100) COLLATE NOCASE,
    cEstado nvarchar(100) COLLATE NOCASE,
    cPais nvarchar(100) COLLATE NOCASE,
    cCodigoPostal nvarchar(20) COLLATE NOCASE,
    cTelefono nvarchar(50) COLLATE NOCASE,
    cRfc nvarchar(20) COLLATE NOCASE,
    cCurp nvarchar(50) COLLATE NOCASE,
    nMostrarVersion smallint NOT NULL DEFAULT 1,
    nMostrarSerie smallint NOT NULL DEFAULT 1,
    nMostrarAnnoAprobacion smallint NOT NULL DEFAULT 1,
    nMostrarTipoDeComprobante smallint NOT NULL DEFAULT 1,
    nMostrarFormadePago smallint NOT NULL DEFAULT 1,
    nMostrarCondicionesDePago smallint NOT NULL DEFAULT 1,
    nMostrarSubtotal smallint NOT NULL DEFAULT 1,
    nMostrarDescuento smallint NOT NULL DEFAULT 1,
    nMostrarTotal smallint NOT NULL DEFAULT 1,
    nMostrarNameSpacePosition smallint NOT NULL DEFAULT 1,
    nMostrarxmlns smallint NOT NULL DEFAULT 1,
    nMostrarxmlnsxsi smallint NOT NULL DEFAULT 1,
    nMostrarxsischemaLocation smallint NOT NULL DEFAULT 1
);

CREATE TABLE FE_SUCURSALES (
    nEmpresa smallint NOT NULL,
    nSucursal smallint NOT NULL,
    nCertificado int,
    nFolio int,
    cNombre nvarchar(500) COLLATE NOCASE,
    cCalle nvarchar(500) COLLATE NOCASE,
    cNumExterior nvarchar(50) COLLATE NOCASE,
    cNumInterior nvarchar(50) COLLATE NOCASE,
    cColonia nvarchar(100) COLLATE NOCASE,
    cLocalidad nvarchar(100) COLLATE NOCASE,
    cMunicipio nvarchar(100) COLLATE NOCASE,
    cEstado nvarchar(100) COLLATE NOCASE,
    cPais nvarchar(100) COLLATE NOCASE,
    cCodigoPostal nvarchar(20) COLLATE NOCASE,
    cTelefono nvarchar(50) COLLATE NOCASE,
    cRfc nvarchar(20) COLLATE NOCASE,
    cCurp nvarchar(50) COLLATE NOCASE,
    PRIMARY KEY (nEmpresa, nSucursal)
);

CREATE TABLE FE_CERTIFICADOS (
    nEmpresa smallint NOT NULL,
    nCertificado smallint NOT NULL,
    cDescripcion nvarchar(200) COLLATE NOCASE,
    cRuta_Certificado nvarchar(500) COLLATE NOCASE,
    cRuta_LlavePrivada nvarchar(500) COLLATE NOCASE,
    dVigencia_Cert_Desde datetime,
    dVigencia_Cert_Hasta datetime,
    cVigencia_Cert_Desde nvarchar(100) COLLATE NOCASE,
    cVigencia_Cert_Hasta nvarchar(100) COLLATE NOCASE,
    cSerial_Certificado nvarchar(100) COLLATE NOCASE,
    cSerie_Certificado nvarchar(50) COLLATE NOCASE,
    cCertificado ntext,
    nDiasDeAviso smallint,
    bVerificaVigencia bit,
    cRutaArchivoSelloDigital nvarchar(500) COLLATE NOCASE,
    PRIMARY KEY (nEmpresa, nCertificado)
);

CREATE TABLE FE_FOLIOS (
    nFolio int NOT NULL PRIMARY KEY,
    nEmpresa smallint,
    nSucursal smallint,
    nCertificado smallint,
    cDocumento nvarchar(50) COLLATE NOCASE,
    cFolio nvarchar(50) COLLATE NOCASE,
    cSerie nvarchar(50) COLLATE NOCASE,
    cNumero_Aprobacion nvarchar(50) COLLATE NOCASE,
    nAnno smallint,
    nDesde int,
    nHasta int,
    cStatus nvarchar(20) COLLATE NOCASE,
    cEsquema nvarchar(20) COLLATE NOCASE,
    nUltimoFolio int
);

CREATE TABLE FE_VENTAS_RESUMEN (
    nID INTEGER PRIMARY KEY,
    cDocumento nvarchar(50) COLLATE NOCASE,
    cTipoDocumento nvarchar(1) COLLATE NOCASE,
    nEmpresa smallint,
    nSucursal smallint,
    cEfecto nvarchar(1) COLLATE NOCASE,
    cCliente nvarchar(50) COLLATE NOCASE,
    dFecha datetime,
    cSerieFolioFE nvarchar(50) COLLATE NOCASE,
    cSerie nvarchar(50) COLLATE NOCASE,
    nFolioFE int,
    cNumero_Aprobacion nvarchar(50) COLLATE NOCASE,
    cSerie_Certificado nvarchar(50) COLLATE NOCASE,
    cSelloDigital ntext,
    cCadenaOriginal ntext,
    cFormaDePago nvarchar(100) COLLATE NOCASE,
    nSubTotalAD decimal(18,4),
    nDescuento decimal(18,4),
    nSubTotalDD decimal(18,4),
    nIva decimal(18,4),
    nTotal decimal(18,4),
    nImporteConLetra nvarchar(500) COLLATE NOCASE,
    cStatus nvarchar(1) COLLATE NOCASE,
    dFechaCan datetime,
    cMoneda nvarchar(50) COLLATE NOCASE,
    nParidad decimal(18,4),
    nIvaRetenido decimal(18,4),
    nIsrRetenido decimal(18,4)
);
CREATE INDEX FE_VENTAS_RESUMEN_documento ON FE_VENTAS_RESUMEN (cDocumento, nEmpresa, nSucursal);
CREATE INDEX FE_VENTAS_RESUMEN_fecha ON FE_VENTAS_RESUMEN (nEmpresa, dFecha);

CREATE TABLE FE_ClienteFactura (
    nidFE int,
    nFolioDocto nvarchar(50) COLLATE NOCASE,
    cTipoDocumento nvarchar(1) COLLATE NOCASE,
    cEmpresa nvarchar(10) COLLATE NOCASE,
    cSucursal nvarchar(10) COLLATE NOCASE,
    cEfecto nvarchar(1) COLLATE NOCASE,
    dFecha datetime,
    cSerieFolioFE nvarchar(50) COLLATE NOCASE,
    cSerie nvarchar(50) COLLATE NOCASE,
    cNumero_Aprobacion nvarchar(50) COLLATE NOCASE,
    cSerie_Certificado nvarchar(50) COLLATE NOCASE,
    cSelloDigital ntext,
    cCadenaOriginal ntext,
    cRfcCte nvarchar(20) COLLATE NOCASE,
    cNombreCte nvarchar(500) COLLATE NOCASE,
    cCalleCte nvarchar(500) COLLATE NOCASE,
    cNumExteriorCte nvarchar(20) COLLATE NOCASE,
    cNumInteriorCte nvarchar(20) COLLATE NOCASE,
    cColoniaCte nvarchar(70) COLLATE NOCASE,
    cLocalidadCte nvarchar(70) COLLATE NOCASE,
    cEstaadoCte nvarchar(70) COLLATE NOCASE,
    cMunicipioCte nvarchar(70) COLLATE NOCASE,
    cPaisCte nvarchar(70) COLLATE NOCASE,
    cCodPostalCte nvarchar(20) COLLATE NOCASE,
    nSubtotalDocto decimal(18,4),
    nImporteDescto decimal(18,4),
    nSubtotalConDescto decimal(18,4),
    nImporteIva decimal(18,4),
    nImporteTotal decimal(18,4),
    cDatoAdicional1 ntext,
    cDatoAdicional2 ntext,
    cDatoAdicional3 ntext
);
CREATE INDEX FE_ClienteFactura_documento ON FE_ClienteFactura (nidFE);

CREATE TABLE FE_VENTAS_RESUMEN_DET (
    nIdFe int,
    nFolioDocto nvarchar(50) COLLATE NOCASE,
    cTipoDocumento nvarchar(1) COLLATE NOCASE,
    cProducto nvarchar(2000) COLLATE NOCASE,
    nCantidad decimal(18,4),
    cunidad nvarchar(15) COLLATE NOCASE,
    nPrecio decimal(18,4),
    nIva decimal(18,4),
    nImporte decimal(18,4),
    nImpuesto decimal(18,4),
    nRenglon int,
    cArticulo nvarchar(10) COLLATE NOCASE,
    nEmpresa smallint,
    nSucursal smallint
);
CREATE INDEX FE_VENTAS_RESUMEN_DET_documento ON FE_VENTAS_RESUMEN_DET (nIdFe, nRenglon);

CREATE TABLE fe_ctl_adendas (
    crfccte nvarchar(20) COLLATE NOCASE,
    nRama smallint,
    nPadre smallint,
    cNombre nvarchar(200) COLLATE NOCASE,
    cTipo nvarchar(1) COLLATE NOCASE,
    cValor ntext
);
CREATE INDEX fe_ctl_adendas_nodo ON fe_ctl_adendas (crfccte, nPadre, nRama);

CREATE TABLE fe_ctl_adendasDet (
    crfccte nvarchar(20) COLLATE NOCASE,
    nRama smallint,
    nPadre smallint,
    cNombre nvarchar(200) COLLATE NOCASE,
    cTipo nvarchar(1) COLLATE NOCASE,
    cValor ntext
);
CREATE INDEX fe_ctl_adendasDet_nodo ON fe_ctl_adendasDet (crfccte, nPadre, nRama);
)";
}

} // namespace tolvex
