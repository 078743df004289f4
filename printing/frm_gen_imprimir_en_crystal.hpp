// The form that prints: it opens a layout, points its data sources at one database, hands it the parameters
// and sends it to the printer, to a file or to the viewer.
#pragma once

#include "printing/document_report.hpp"
#include "session/opening.hpp"

namespace tolvex {

class FrmGenImprimirEnCrystal
{
public:
    // Where the reports read; it stays open between calls.
    Connection connection;

    // Names and values in pairs.
    void PasarParametros(std::vector<printing::GivenValue> parameters);
    void PasarParametrosAuxiliares(std::vector<printing::GivenValue> parameters);

    // The report in the viewer, modeless. These throw Error, with line and element where a layout is at
    // fault.
    void pmImprimirVisor(const Text& report, const ConnectionData& logon);
    // The report in a PDF file. Deliberate: one file, whatever number of copies.
    void pmImprimirPDF(const Text& report, const ConnectionData& logon, std::int16_t copies, const Text& pdf);
    // The report on the default printer, all pages, without a question.
    void pmImprimirImpresora(const Text& report, const ConnectionData& logon, std::int16_t copies);
    // As the viewer and the printer, with the tables that data sets name directly taken as
    // database.dbo.table.
    void pmImprimir_Con_Query(const Text& report, const ConnectionData& logon);
    void pmImprimir_Con_Query_Sin_Visor(const Text& report, const ConnectionData& logon, std::int16_t copies);

private:
    void log_on(const ConnectionData& logon);
    void compose(const printing::Layout& layout, pages::PageSink& sink);
    void show(const printing::Layout& layout);
    void print(const printing::Layout& layout, std::int16_t copies);
    pages::DocumentProperties properties(const printing::Layout& layout) const;

    std::vector<printing::GivenValue> parameters_, auxiliary_;
};

// The one form of the process.
FrmGenImprimirEnCrystal& printing_form();

// Prints a document of the session's database, or exports it to PDF.
// Deliberate: what fails prints nothing and is told by last_error() alone; the connection stays open.
void print_document(Session& session, const ReportedDocument& document, const Text& report, bool as_pdf,
                    std::int16_t copies);
void show_document(Session& session, const ReportedDocument& document, const Text& report);

} // namespace tolvex
