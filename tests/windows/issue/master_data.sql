Insert Into FE_EMPRESAS(nEmpresa,cNombre,cCalle,cNumExterior,cNumInterior,cColonia,cLocalidad,cMunicipio,cEstado,cPais,cCodigoPostal,cTelefono,cRfc,cCurp)
 Values(1,'ABARROTES LA ESPERANZA, S.A. DE C.V.','CALLE DE LA ALHÓNDIGA','15','','CENTRO','GUANAJUATO','GUANAJUATO','GUANAJUATO','MÉXICO','36000','','AES010101AAA','');
Insert Into FE_SUCURSALES(nEmpresa,nSucursal,nCertificado,nFolio,cNombre,cCalle,cNumExterior,cColonia,cLocalidad,cMunicipio,cEstado,cPais,cCodigoPostal,cRfc)
 Values(1,1,1,1,'MATRIZ','CALLE DE LA ALHÓNDIGA','15','CENTRO','GUANAJUATO','GUANAJUATO','GUANAJUATO','MÉXICO','36000','AES010101AAA');
Insert Into FE_CERTIFICADOS(nEmpresa,nCertificado,cDescripcion,cSerial_Certificado,cSerie_Certificado,cCertificado,dVigencia_Cert_Desde,dVigencia_Cert_Hasta)
 Values(1,1,'SELLO','serial=3230303031303030303030313030303035383637','20001000000100005867','TUlJQ2VydGlmaWNhZG8=','2011-01-01','2031-01-01');
Insert Into FE_FOLIOS(nFolio,nEmpresa,nSucursal,nCertificado,cDocumento,cFolio,cSerie,cNumero_Aprobacion,nAnno,nDesde,nHasta,cStatus,cEsquema,nUltimoFolio)
 Values(1,1,1,1,'FACTURAS','FD','A','2011',2011,1,2,'USANDO','1',Null);
Insert Into FE_FOLIOS(nFolio,nEmpresa,nSucursal,nCertificado,cDocumento,cFolio,cSerie,cNumero_Aprobacion,nAnno,nDesde,nHasta,cStatus,cEsquema,nUltimoFolio)
 Values(2,1,1,1,'NOTAS DE CREDITO','NC','NC','2012',2011,1,9,'USANDO','1',4),(3,1,1,1,'FACTURAS','FD','B','2011',2011,1,99,'USANDO','1',Null);
Insert Into fe_ctl_adendas(crfccte,nRama,nPadre,cNombre,cTipo,cValor)
 Values('TIE010203ABC',1,0,'Pedido','E',''),('TIE010203ABC',2,1,'ordenCompra','A',''),('TIE010203ABC',3,1,'Det@lle','E','');
Insert Into fe_ctl_adendasDet(crfccte,nRama,nPadre,cNombre,cTipo,cValor)
 Values('TIE010203ABC',4,3,'Partida','E',''),('TIE010203ABC',5,4,'codigo','A','sin código');
