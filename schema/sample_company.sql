-- The master data of the demonstration's company, and the addenda layout of one of its customers. What stands
-- between braces is filled in; the folio ranges keep their counters from one demonstration to the next.

Delete FE_EMPRESAS Where nEmpresa=1;
Insert Into FE_EMPRESAS(nEmpresa,cNombre,cCalle,cNumExterior,cNumInterior,cColonia,cLocalidad,cMunicipio,cEstado,
    cPais,cCodigoPostal,cTelefono,cRfc,cCurp,nMostrarVersion,nMostrarSerie,nMostrarAnnoAprobacion,
    nMostrarTipoDeComprobante,nMostrarFormadePago,nMostrarCondicionesDePago,nMostrarSubtotal,nMostrarDescuento,
    nMostrarTotal,nMostrarNameSpacePosition,nMostrarxmlns,nMostrarxmlnsxsi,nMostrarxsischemaLocation)
Values(1,'ABARROTES LA ESPERANZA, S.A. DE C.V.','CALLE DE LA ALHÓNDIGA','15','','CENTRO','GUANAJUATO','GUANAJUATO',
    'GUANAJUATO','MÉXICO','36000','4737320000','{RFC}','',1,1,1,1,1,1,1,1,1,1,1,1,1);
GO
Delete FE_SUCURSALES Where nEmpresa=1 And nSucursal=1;
Insert Into FE_SUCURSALES(nEmpresa,nSucursal,nCertificado,nFolio,cNombre,cCalle,cNumExterior,cColonia,cLocalidad,
    cMunicipio,cEstado,cPais,cCodigoPostal,cRfc)
Values(1,1,1,1,'MATRIZ','CALLE DE LA ALHÓNDIGA','15','CENTRO','GUANAJUATO','GUANAJUATO','GUANAJUATO','MÉXICO',
    '36000','{RFC}');
GO
Delete FE_CERTIFICADOS Where nEmpresa=1 And nCertificado=1;
Insert Into FE_CERTIFICADOS(nEmpresa,nCertificado,cDescripcion,cRuta_Certificado,cRuta_LlavePrivada,
    dVigencia_Cert_Desde,dVigencia_Cert_Hasta,cSerial_Certificado,cSerie_Certificado,cCertificado,nDiasDeAviso,
    bVerificaVigencia,cRutaArchivoSelloDigital)
Values(1,1,'SELLO DE LA MATRIZ','{CARPETA}\certificado.cer','{CARPETA}\llave.key','{DESDE}','{HASTA}',
    'serial={SERIAL}','{NUMERO}','{CERTIFICADO}',15,1,'{CARPETA}');
GO
Insert Into FE_FOLIOS(nFolio,nEmpresa,nSucursal,nCertificado,cDocumento,cFolio,cSerie,cNumero_Aprobacion,nAnno,
    nDesde,nHasta,cStatus,cEsquema)
Select 1,1,1,1,'FACTURAS','FD','A','2011',2011,1,100000,'USANDO','1'
Where Not Exists (Select * From FE_FOLIOS Where nFolio=1);
Insert Into FE_FOLIOS(nFolio,nEmpresa,nSucursal,nCertificado,cDocumento,cFolio,cSerie,cNumero_Aprobacion,nAnno,
    nDesde,nHasta,cStatus,cEsquema)
Select 2,1,1,1,'NOTAS DE CREDITO','NC','NC','2012',2011,1,100000,'USANDO','1'
Where Not Exists (Select * From FE_FOLIOS Where nFolio=2);
GO
-- Pedido with its order number, and for every line a Partida with its code.
Delete fe_ctl_adendas Where crfccte='TIE010203ABC';
Insert Into fe_ctl_adendas(crfccte,nRama,nPadre,cNombre,cTipo,cValor)
Values('TIE010203ABC',1,0,'Pedido','E',''),('TIE010203ABC',2,1,'ordenCompra','A',''),
    ('TIE010203ABC',3,1,'Det@lle','E','');
GO
Delete fe_ctl_adendasDet Where crfccte='TIE010203ABC';
Insert Into fe_ctl_adendasDet(crfccte,nRama,nPadre,cNombre,cTipo,cValor)
Values('TIE010203ABC',4,3,'Partida','E',''),('TIE010203ABC',5,4,'codigo','A','sin código');
