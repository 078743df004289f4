#include "maintenance/certificate_expiry.hpp"

#include "core/display_patterns.hpp"
#include "core/numbers.hpp"

#include <cmath>

namespace tolvex {

Text expiry_warning(Session& session, std::int16_t company, std::int16_t certificate, Date today)
{
    const Recordset row =
        shared_connection(session).query(u"Select dVigencia_Cert_Hasta,nDiasDeAviso,bVerificaVigencia From "
                                         u"FE_CERTIFICADOS(nolock) Where nEmpresa=" +
                                         decimal(company) + u" And nCertificado=" + decimal(certificate));
    if (row.eof() || row[u"dVigencia_Cert_Hasta"].is_null()) return {};
    const Value checked = row[u"bVerificaVigencia"], days_of_warning = row[u"nDiasDeAviso"];
    if (checked.is_null() || !checked.boolean()) return {};
    const Date until = row[u"dVigencia_Cert_Hasta"].date();
    const double days = std::floor(until.days) - std::floor(today.days);
    const Text which = u"el certificado " + decimal(certificate) + u" de la empresa " + decimal(company);
    if (days < 0) return which + u" caducó el " + format(until, u"yyyy-mm-dd");
    if (days_of_warning.is_null() || days > days_of_warning.number()) return {};
    return which + u" caduca el " + format(until, u"yyyy-mm-dd");
}

} // namespace tolvex
