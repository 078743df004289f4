#include "printing/document_report.hpp"

#include "platform/clock.hpp"
#include "platform/pages/pdf.hpp"

namespace tolvex {

std::vector<printing::GivenValue> report_parameters(const ReportedDocument& document)
{
    return {{u"@cIndFactura", document.folio}, {u"@nEmpresa", std::int64_t{document.company}}};
}

Text report_pdf_path(const Session& session, TextView folio)
{
    return session.gRutaDeArchivos + u"\\FacturaElec_" + trim(folio) + u".pdf";
}

pages::DocumentProperties report_properties(const ReportedDocument& document)
{
    return {u"Documento " + trim(document.folio), u""};
}

std::vector<printing::Remark> export_document(const printing::Layout& layout, Connection& connection,
                                              const ReportedDocument& document, const Text& path)
{
    pages::PdfFile file(path, report_properties(document));
    std::vector<printing::Remark> remarks =
        printing::compose(layout, report_parameters(document), connection, local_now(), file);
    file.finish();
    return remarks;
}

} // namespace tolvex
