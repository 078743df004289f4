-- Indexes for the statements that search documents, their lines and receivers, and the addenda layouts.

IF INDEXPROPERTY(OBJECT_ID(N'dbo.FE_VENTAS_RESUMEN'), N'IX_FE_VENTAS_RESUMEN_Documento', N'IndexID') IS NULL
    CREATE INDEX IX_FE_VENTAS_RESUMEN_Documento ON dbo.FE_VENTAS_RESUMEN (cDocumento, nEmpresa, nSucursal)
GO
IF INDEXPROPERTY(OBJECT_ID(N'dbo.FE_VENTAS_RESUMEN'), N'IX_FE_VENTAS_RESUMEN_Fecha', N'IndexID') IS NULL
    CREATE INDEX IX_FE_VENTAS_RESUMEN_Fecha ON dbo.FE_VENTAS_RESUMEN (nEmpresa, dFecha)
GO
IF INDEXPROPERTY(OBJECT_ID(N'dbo.FE_ClienteFactura'), N'IX_FE_ClienteFactura_nIdFe', N'IndexID') IS NULL
    CREATE INDEX IX_FE_ClienteFactura_nIdFe ON dbo.FE_ClienteFactura (nidFE)
GO
IF INDEXPROPERTY(OBJECT_ID(N'dbo.FE_VENTAS_RESUMEN_DET'), N'IX_FE_VENTAS_RESUMEN_DET_nIdFe', N'IndexID') IS NULL
    CREATE INDEX IX_FE_VENTAS_RESUMEN_DET_nIdFe ON dbo.FE_VENTAS_RESUMEN_DET (nIdFe, nRenglon)
GO
IF INDEXPROPERTY(OBJECT_ID(N'dbo.fe_ctl_adendas'), N'IX_fe_ctl_adendas_Padre', N'IndexID') IS NULL
    CREATE INDEX IX_fe_ctl_adendas_Padre ON dbo.fe_ctl_adendas (crfccte, nPadre, nRama)
GO
IF INDEXPROPERTY(OBJECT_ID(N'dbo.fe_ctl_adendasDet'), N'IX_fe_ctl_adendasDet_Padre', N'IndexID') IS NULL
    CREATE INDEX IX_fe_ctl_adendasDet_Padre ON dbo.fe_ctl_adendasDet (crfccte, nPadre, nRama)
GO
