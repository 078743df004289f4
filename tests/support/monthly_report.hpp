// The query of the monthly report of used folios, of company 1 in a month of 2011.
#pragma once

#include "tolvex/types.hpp"

namespace tolvex::testing {

inline Text monthly_report(const Text& month)
{
    return u"SELECT Fe.*,substring(convert(varchar(10),fe.DFECHA,103),1,6) + "
           u"convert(char(4),year(fe.DFECHA)) + "
           u"' ' + convert(varchar(8),fe.DFECHA,108) as FechaFormato,"
           u"replace(replace(c.crfcCte,' ',''),'-','') as cRfc,fo.nAnno \r From FE_VENTAS_RESUMEN fe(Nolock) "
           u"INNER JOIN  \r FE_EMPRESAS em(Nolock) ON (fe.nEmpresa = em.nEmpresa) INNER JOIN  \r "
           u"FE_SUCURSALES S(Nolock) ON (fe.nEmpresa = s.nEmpresa AND fe.nSucursal = s.nSucursal) "
           u"INNER JOIN  \r FE_FOLIOS fo(nolock) ON (fo.nempresa = s.nempresa AND fo.nsucursal = s.nsucursal "
           u"AND fo.ncertificado = s.ncertificado AND fo.cserie = fe.cserie) INNER JOIN  \r "
           u"FE_ClienteFactura c(nolock) ON (c.nfoliodocto = fe.cdocumento AND c.nIdFe = fe.nID)\r "
           u"WHERE  fe.nEmpresa = 1 And year(fe.dFecha) = 2011 AND month(fe.dFecha) =" +
           month;
}

} // namespace tolvex::testing
