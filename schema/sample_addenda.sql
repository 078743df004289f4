-- The addenda layout of one of the demonstration's customers: Pedido with its order number, and for every line a
-- Partida with its code.
Delete fe_ctl_adendas Where crfccte='DEM010203ABC';
Insert Into fe_ctl_adendas(crfccte,nRama,nPadre,cNombre,cTipo,cValor)
Values('DEM010203ABC',1,0,'Pedido','E',''),('DEM010203ABC',2,1,'ordenCompra','A',''),
    ('DEM010203ABC',3,1,'Det@lle','E','');
GO
Delete fe_ctl_adendasDet Where crfccte='DEM010203ABC';
Insert Into fe_ctl_adendasDet(crfccte,nRama,nPadre,cNombre,cTipo,cValor)
Values('DEM010203ABC',4,3,'Partida','E',''),('DEM010203ABC',5,4,'codigo','A','sin código');
