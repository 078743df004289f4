-- The tables and indexes of a new embedded database, with the columns of ../sql_server/tables.sql under SQL Server's
-- names of kinds. Texts compare without regard to case, as on the server. Keys that statements take as "highest plus
-- one" are plain keys; the document's nID alone is handed out by the database, which gives no number a second time.

CREATE TABLE FE_EMPRESAS (
    nEmpresa smallint NOT NULL,
    cNombre nvarchar(500) COLLATE NOCASE,
    cCalle nvarchar(500) COLLATE NOCASE,
    cNumExterior nvarchar(100) COLLATE NOCASE,
    cNumInterior nvarchar(100) COLLATE NOCASE,
    cColonia nvarchar(100) COLLATE NOCASE,
    cLocalidad nvarchar(100) COLLATE NOCASE,
    cMunicipio nvarchar(100) COLLATE NOCASE,
    cEstado nvarchar(100) COLLATE NOCASE,
    cPais nvarchar(100) COLLATE NOCASE,
    cCodigoPostal nvarchar(20) COLLATE NOCASE,
    cTelefono nvarchar(100) COLLATE NOCASE,
    cRfc nvarchar(20) COLLATE NOCASE,
    cCurp nvarchar(20) COLLATE NOCASE,
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
    nMostrarxsischemaLocation smallint NOT NULL DEFAULT 1,
    PRIMARY KEY (nEmpresa)
);

CREATE TABLE FE_SUCURSALES (
    nEmpresa smallint NOT NULL,
    nSucursal smallint NOT NULL,
    nCertificado smallint,
    nFolio int,
    cNombre nvarchar(500) COLLATE NOCASE,
    cCalle nvarchar(500) COLLATE NOCASE,
    cNumExterior nvarchar(100) COLLATE NOCASE,
    cNumInterior nvarchar(100) COLLATE NOCASE,
    cColonia nvarchar(100) COLLATE NOCASE,
    cLocalidad nvarchar(100) COLLATE NOCASE,
    cMunicipio nvarchar(100) COLLATE NOCASE,
    cEstado nvarchar(100) COLLATE NOCASE,
    cPais nvarchar(100) COLLATE NOCASE,
    cCodigoPostal nvarchar(20) COLLATE NOCASE,
    cTelefono nvarchar(100) COLLATE NOCASE,
    cRfc nvarchar(20) COLLATE NOCASE,
    cCurp nvarchar(20) COLLATE NOCASE,
    PRIMARY KEY (nEmpresa, nSucursal)
);

CREATE TABLE FE_CERTIFICADOS (
    nEmpresa smallint NOT NULL,
    nCertificado smallint NOT NULL,
    cDescripcion nvarchar(500) COLLATE NOCASE,
    cRuta_Certificado nvarchar(1000) COLLATE NOCASE,
    cRuta_LlavePrivada nvarchar(1000) COLLATE NOCASE,
    dVigencia_Cert_Desde datetime,
    dVigencia_Cert_Hasta datetime,
    cVigencia_Cert_Desde nvarchar(100) COLLATE NOCASE,
    cVigencia_Cert_Hasta nvarchar(100) COLLATE NOCASE,
    cSerial_Certificado nvarchar(100) COLLATE NOCASE,
    cSerie_Certificado nvarchar(100) COLLATE NOCASE,
    cCertificado ntext COLLATE NOCASE,
    nDiasDeAviso int,
    bVerificaVigencia bit,
    cRutaArchivoSelloDigital nvarchar(1000) COLLATE NOCASE,
    PRIMARY KEY (nEmpresa, nCertificado)
);

CREATE TABLE FE_FOLIOS (
    nFolio int NOT NULL,
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
    cStatus nvarchar(50) COLLATE NOCASE,
    cEsquema nvarchar(50) COLLATE NOCASE,
    nUltimoFolio int,
    PRIMARY KEY (nFolio)
);

CREATE TABLE FE_VENTAS_RESUMEN (
    nID INTEGER PRIMARY KEY AUTOINCREMENT,
    cDocumento nvarchar(255) COLLATE NOCASE,
    cTipoDocumento nvarchar(1) COLLATE NOCASE,
    nEmpresa smallint,
    nSucursal smallint,
    cEfecto nvarchar(1) COLLATE NOCASE,
    cCliente nvarchar(50) COLLATE NOCASE,
    dFecha datetime,
    cSerieFolioFE nvarchar(100) COLLATE NOCASE,
    cSerie nvarchar(50) COLLATE NOCASE,
    nFolioFE int,
    cNumero_Aprobacion nvarchar(50) COLLATE NOCASE,
    cSerie_Certificado nvarchar(100) COLLATE NOCASE,
    cSelloDigital ntext COLLATE NOCASE,
    cCadenaOriginal ntext COLLATE NOCASE,
    cFormaDePago nvarchar(100) COLLATE NOCASE,
    nSubTotalAD decimal(19,4),
    nDescuento decimal(19,4),
    nSubTotalDD decimal(19,4),
    nIva decimal(19,4),
    nTotal decimal(19,4),
    nImporteConLetra ntext COLLATE NOCASE,
    cStatus nvarchar(1) COLLATE NOCASE,
    dFechaCan datetime,
    cMoneda ntext COLLATE NOCASE,
    nParidad decimal(19,4),
    nIvaRetenido decimal(19,4),
    nIsrRetenido decimal(19,4)
);
CREATE INDEX FE_VENTAS_RESUMEN_documento ON FE_VENTAS_RESUMEN (cDocumento, nEmpresa, nSucursal);
CREATE INDEX FE_VENTAS_RESUMEN_fecha ON FE_VENTAS_RESUMEN (nEmpresa, dFecha);

CREATE TABLE FE_ClienteFactura (
    nidFE int NOT NULL,
    nFolioDocto nvarchar(255) COLLATE NOCASE,
    cTipoDocumento nvarchar(1) COLLATE NOCASE,
    cEmpresa nvarchar(10) COLLATE NOCASE,
    cSucursal nvarchar(10) COLLATE NOCASE,
    cEfecto nvarchar(1) COLLATE NOCASE,
    dFecha datetime,
    cSerieFolioFE nvarchar(100) COLLATE NOCASE,
    cSerie nvarchar(50) COLLATE NOCASE,
    cNumero_Aprobacion nvarchar(50) COLLATE NOCASE,
    cSerie_Certificado nvarchar(100) COLLATE NOCASE,
    cSelloDigital ntext COLLATE NOCASE,
    cCadenaOriginal ntext COLLATE NOCASE,
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
    nSubtotalDocto decimal(19,4),
    nImporteDescto decimal(19,4),
    nSubtotalConDescto decimal(19,4),
    nImporteIva decimal(19,4),
    nImporteTotal decimal(19,4),
    cDatoAdicional1 ntext COLLATE NOCASE,
    cDatoAdicional2 ntext COLLATE NOCASE,
    cDatoAdicional3 ntext COLLATE NOCASE
);
CREATE INDEX FE_ClienteFactura_documento ON FE_ClienteFactura (nidFE);

CREATE TABLE FE_VENTAS_RESUMEN_DET (
    nIdFe int NOT NULL,
    nFolioDocto nvarchar(255) COLLATE NOCASE,
    cTipoDocumento nvarchar(1) COLLATE NOCASE,
    cProducto nvarchar(2000) COLLATE NOCASE,
    nCantidad decimal(19,4),
    cunidad nvarchar(15) COLLATE NOCASE,
    nPrecio decimal(19,4),
    nIva decimal(19,4),
    nImporte decimal(19,4),
    nImpuesto decimal(19,4),
    nRenglon int,
    cArticulo nvarchar(10) COLLATE NOCASE,
    nEmpresa smallint,
    nSucursal smallint
);
CREATE INDEX FE_VENTAS_RESUMEN_DET_documento ON FE_VENTAS_RESUMEN_DET (nIdFe, nRenglon);

CREATE TABLE fe_ctl_adendas (
    crfccte nvarchar(20) COLLATE NOCASE NOT NULL,
    nRama smallint NOT NULL,
    nPadre smallint NOT NULL,
    cNombre nvarchar(255) COLLATE NOCASE,
    cTipo nvarchar(10) COLLATE NOCASE,
    cValor ntext COLLATE NOCASE
);
CREATE INDEX fe_ctl_adendas_nodo ON fe_ctl_adendas (crfccte, nPadre, nRama);

CREATE TABLE fe_ctl_adendasDet (
    crfccte nvarchar(20) COLLATE NOCASE NOT NULL,
    nRama smallint NOT NULL,
    nPadre smallint NOT NULL,
    cNombre nvarchar(255) COLLATE NOCASE,
    cTipo nvarchar(10) COLLATE NOCASE,
    cValor ntext COLLATE NOCASE
);
CREATE INDEX fe_ctl_adendasDet_nodo ON fe_ctl_adendasDet (crfccte, nPadre, nRama);
