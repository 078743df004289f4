-- Tables of TOLVEX on SQL Server. Each batch creates what is missing and leaves what is there, so that the script can
-- be run again. The database's collation must not tell cases apart: statements spell the same names in several ways.
--
-- Widths: what a document stages is as wide as staging clips it; what staging takes whole is nvarchar(max), and folio
-- keys, which are searched by, 255. Amounts have four decimals. Keys of documents are not unique: an invoice and a
-- credit note may share one, and two stations that issue at the same moment may draw the same.

IF N'a' <> N'A' COLLATE DATABASE_DEFAULT
BEGIN
    -- Accents by their codes, so that they arrive whole through any code page of a client.
    DECLARE @aviso nvarchar(200)
    SET @aviso = N'La base de datos distingue may' + NCHAR(250) + N'sculas de min' + NCHAR(250) +
        N'sculas: cree una con una intercalaci' + NCHAR(243) + N'n CI'
    RAISERROR(@aviso, 16, 1)
END
GO

IF OBJECT_ID(N'dbo.FE_EMPRESAS') IS NULL
    CREATE TABLE dbo.FE_EMPRESAS (
        nEmpresa smallint NOT NULL,
        cNombre nvarchar(500) NULL,
        cCalle nvarchar(500) NULL,
        cNumExterior nvarchar(100) NULL,
        cNumInterior nvarchar(100) NULL,
        cColonia nvarchar(100) NULL,
        cLocalidad nvarchar(100) NULL,
        cMunicipio nvarchar(100) NULL,
        cEstado nvarchar(100) NULL,
        cPais nvarchar(100) NULL,
        cCodigoPostal nvarchar(20) NULL,
        cTelefono nvarchar(100) NULL,
        cRfc nvarchar(20) NULL,
        cCurp nvarchar(20) NULL,
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
        CONSTRAINT PK_FE_EMPRESAS PRIMARY KEY (nEmpresa)
    )
GO

IF OBJECT_ID(N'dbo.FE_SUCURSALES') IS NULL
    CREATE TABLE dbo.FE_SUCURSALES (
        nEmpresa smallint NOT NULL,
        nSucursal smallint NOT NULL,
        nCertificado smallint NULL,
        nFolio int NULL,
        cNombre nvarchar(500) NULL,
        cCalle nvarchar(500) NULL,
        cNumExterior nvarchar(100) NULL,
        cNumInterior nvarchar(100) NULL,
        cColonia nvarchar(100) NULL,
        cLocalidad nvarchar(100) NULL,
        cMunicipio nvarchar(100) NULL,
        cEstado nvarchar(100) NULL,
        cPais nvarchar(100) NULL,
        cCodigoPostal nvarchar(20) NULL,
        cTelefono nvarchar(100) NULL,
        cRfc nvarchar(20) NULL,
        cCurp nvarchar(20) NULL,
        CONSTRAINT PK_FE_SUCURSALES PRIMARY KEY (nEmpresa, nSucursal)
    )
GO

IF OBJECT_ID(N'dbo.FE_CERTIFICADOS') IS NULL
    CREATE TABLE dbo.FE_CERTIFICADOS (
        nEmpresa smallint NOT NULL,
        nCertificado smallint NOT NULL,
        cDescripcion nvarchar(500) NULL,
        cRuta_Certificado nvarchar(1000) NULL,
        cRuta_LlavePrivada nvarchar(1000) NULL,
        dVigencia_Cert_Desde datetime NULL,
        dVigencia_Cert_Hasta datetime NULL,
        cVigencia_Cert_Desde nvarchar(100) NULL,
        cVigencia_Cert_Hasta nvarchar(100) NULL,
        cSerial_Certificado nvarchar(100) NULL,
        cSerie_Certificado nvarchar(100) NULL,
        cCertificado nvarchar(max) NULL,
        nDiasDeAviso int NULL,
        bVerificaVigencia bit NULL,
        cRutaArchivoSelloDigital nvarchar(1000) NULL,
        CONSTRAINT PK_FE_CERTIFICADOS PRIMARY KEY (nEmpresa, nCertificado)
    )
GO

IF OBJECT_ID(N'dbo.FE_FOLIOS') IS NULL
    CREATE TABLE dbo.FE_FOLIOS (
        nFolio int NOT NULL,
        nEmpresa smallint NULL,
        nSucursal smallint NULL,
        nCertificado smallint NULL,
        cDocumento nvarchar(50) NULL,
        cFolio nvarchar(50) NULL,
        cSerie nvarchar(50) NULL,
        cNumero_Aprobacion nvarchar(50) NULL,
        nAnno smallint NULL,
        nDesde int NULL,
        nHasta int NULL,
        cStatus nvarchar(50) NULL,
        cEsquema nvarchar(50) NULL,
        nUltimoFolio int NULL,
        CONSTRAINT PK_FE_FOLIOS PRIMARY KEY (nFolio)
    )
GO

IF OBJECT_ID(N'dbo.FE_VENTAS_RESUMEN') IS NULL
    CREATE TABLE dbo.FE_VENTAS_RESUMEN (
        nID int IDENTITY(1, 1) NOT NULL,
        cDocumento nvarchar(255) NULL,
        cTipoDocumento nvarchar(1) NULL,
        nEmpresa smallint NULL,
        nSucursal smallint NULL,
        cEfecto nvarchar(1) NULL,
        cCliente nvarchar(50) NULL,
        dFecha datetime NULL,
        cSerieFolioFE nvarchar(100) NULL,
        cSerie nvarchar(50) NULL,
        nFolioFE int NULL,
        cNumero_Aprobacion nvarchar(50) NULL,
        cSerie_Certificado nvarchar(100) NULL,
        cSelloDigital nvarchar(max) NULL,
        cCadenaOriginal nvarchar(max) NULL,
        cFormaDePago nvarchar(100) NULL,
        nSubTotalAD decimal(19, 4) NULL,
        nDescuento decimal(19, 4) NULL,
        nSubTotalDD decimal(19, 4) NULL,
        nIva decimal(19, 4) NULL,
        nTotal decimal(19, 4) NULL,
        nImporteConLetra nvarchar(max) NULL,
        cStatus nvarchar(1) NULL,
        dFechaCan datetime NULL,
        cMoneda nvarchar(max) NULL,
        nParidad decimal(19, 4) NULL,
        nIvaRetenido decimal(19, 4) NULL,
        nIsrRetenido decimal(19, 4) NULL,
        CONSTRAINT PK_FE_VENTAS_RESUMEN PRIMARY KEY (nID)
    )
GO

IF OBJECT_ID(N'dbo.FE_ClienteFactura') IS NULL
    CREATE TABLE dbo.FE_ClienteFactura (
        nidFE int NOT NULL,
        nFolioDocto nvarchar(255) NULL,
        cTipoDocumento nvarchar(1) NULL,
        cEmpresa nvarchar(10) NULL,
        cSucursal nvarchar(10) NULL,
        cEfecto nvarchar(1) NULL,
        dFecha datetime NULL,
        cSerieFolioFE nvarchar(100) NULL,
        cSerie nvarchar(50) NULL,
        cNumero_Aprobacion nvarchar(50) NULL,
        cSerie_Certificado nvarchar(100) NULL,
        cSelloDigital nvarchar(max) NULL,
        cCadenaOriginal nvarchar(max) NULL,
        cRfcCte nvarchar(20) NULL,
        cNombreCte nvarchar(500) NULL,
        cCalleCte nvarchar(500) NULL,
        cNumExteriorCte nvarchar(20) NULL,
        cNumInteriorCte nvarchar(20) NULL,
        cColoniaCte nvarchar(70) NULL,
        cLocalidadCte nvarchar(70) NULL,
        cEstaadoCte nvarchar(70) NULL,
        cMunicipioCte nvarchar(70) NULL,
        cPaisCte nvarchar(70) NULL,
        cCodPostalCte nvarchar(20) NULL,
        nSubtotalDocto decimal(19, 4) NULL,
        nImporteDescto decimal(19, 4) NULL,
        nSubtotalConDescto decimal(19, 4) NULL,
        nImporteIva decimal(19, 4) NULL,
        nImporteTotal decimal(19, 4) NULL,
        cDatoAdicional1 nvarchar(max) NULL,
        cDatoAdicional2 nvarchar(max) NULL,
        cDatoAdicional3 nvarchar(max) NULL
    )
GO

IF OBJECT_ID(N'dbo.FE_VENTAS_RESUMEN_DET') IS NULL
    CREATE TABLE dbo.FE_VENTAS_RESUMEN_DET (
        nIdFe int NOT NULL,
        nFolioDocto nvarchar(255) NULL,
        cTipoDocumento nvarchar(1) NULL,
        cProducto nvarchar(2000) NULL,
        nCantidad decimal(19, 4) NULL,
        cunidad nvarchar(15) NULL,
        nPrecio decimal(19, 4) NULL,
        nIva decimal(19, 4) NULL,
        nImporte decimal(19, 4) NULL,
        nImpuesto decimal(19, 4) NULL,
        nRenglon int NULL,
        cArticulo nvarchar(10) NULL,
        nEmpresa smallint NULL,
        nSucursal smallint NULL
    )
GO

IF OBJECT_ID(N'dbo.fe_ctl_adendas') IS NULL
    CREATE TABLE dbo.fe_ctl_adendas (
        crfccte nvarchar(20) NOT NULL,
        nRama smallint NOT NULL,
        nPadre smallint NOT NULL,
        cNombre nvarchar(255) NULL,
        cTipo nvarchar(10) NULL,
        cValor nvarchar(max) NULL
    )
GO

IF OBJECT_ID(N'dbo.fe_ctl_adendasDet') IS NULL
    CREATE TABLE dbo.fe_ctl_adendasDet (
        crfccte nvarchar(20) NOT NULL,
        nRama smallint NOT NULL,
        nPadre smallint NOT NULL,
        cNombre nvarchar(255) NULL,
        cTipo nvarchar(10) NULL,
        cValor nvarchar(max) NULL
    )
GO
