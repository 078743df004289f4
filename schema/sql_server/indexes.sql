-- Indexes for the statements that search documents, their lines and receivers, and the addenda layouts. Looked for by
-- how their names begin: some servers that speak T-SQL lengthen the name of an index.

IF NOT EXISTS (SELECT * FROM sys.indexes
               WHERE object_id = OBJECT_ID(N'dbo.FE_VENTAS_RESUMEN') AND name LIKE N'IX_FE_VENTAS_RESUMEN_Documento%')
    CREATE INDEX IX_FE_VENTAS_RESUMEN_Documento ON dbo.FE_VENTAS_RESUMEN (cDocumento, nEmpresa, nSucursal)
GO

IF NOT EXISTS (SELECT * FROM sys.indexes
               WHERE object_id = OBJECT_ID(N'dbo.FE_VENTAS_RESUMEN') AND name LIKE N'IX_FE_VENTAS_RESUMEN_Fecha%')
    CREATE INDEX IX_FE_VENTAS_RESUMEN_Fecha ON dbo.FE_VENTAS_RESUMEN (nEmpresa, dFecha)
GO

IF NOT EXISTS (SELECT * FROM sys.indexes
               WHERE object_id = OBJECT_ID(N'dbo.FE_ClienteFactura') AND name LIKE N'IX_FE_ClienteFactura_nIdFe%')
    CREATE INDEX IX_FE_ClienteFactura_nIdFe ON dbo.FE_ClienteFactura (nidFE)
GO

IF NOT EXISTS (SELECT * FROM sys.indexes
               WHERE object_id = OBJECT_ID(N'dbo.FE_VENTAS_RESUMEN_DET') AND name LIKE N'IX_FE_VENTAS_RESUMEN_DET_nIdFe%')
    CREATE INDEX IX_FE_VENTAS_RESUMEN_DET_nIdFe ON dbo.FE_VENTAS_RESUMEN_DET (nIdFe, nRenglon)
GO

IF NOT EXISTS (SELECT * FROM sys.indexes
               WHERE object_id = OBJECT_ID(N'dbo.fe_ctl_adendas') AND name LIKE N'IX_fe_ctl_adendas_Padre%')
    CREATE INDEX IX_fe_ctl_adendas_Padre ON dbo.fe_ctl_adendas (crfccte, nPadre, nRama)
GO

IF NOT EXISTS (SELECT * FROM sys.indexes
               WHERE object_id = OBJECT_ID(N'dbo.fe_ctl_adendasDet') AND name LIKE N'IX_fe_ctl_adendasDet_Padre%')
    CREATE INDEX IX_fe_ctl_adendasDet_Padre ON dbo.fe_ctl_adendasDet (crfccte, nPadre, nRama)
GO
