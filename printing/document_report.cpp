#include "printing/document_report.hpp"

namespace tolvex {

std::vector<printing::GivenValue> report_parameters(const ReportedDocument& document)
{
    return {{u"@cIndFactura", document.folio}, {u"@nEmpresa", std::int64_t{document.company}}};
}

Text report_pdf_path(const Session& session, TextView folio)
{
    return session.gRutaDeArchivos + u"\\FacturaElec_" + trim(folio) + u".pdf";
}

} // namespace tolvex
