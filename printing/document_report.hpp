// An issued document printed from a report layout.
#pragma once

#include "platform/pages/page.hpp"
#include "printing/composing/composer.hpp"
#include "session/session.hpp"

namespace tolvex {

// The document that a report is about, as its two parameters name it.
struct ReportedDocument
{
    Text folio;
    std::int16_t company = 0;
};

// The values that select it, under their documented names.
std::vector<printing::GivenValue> report_parameters(const ReportedDocument& document);

// Its PDF file in the working folder of the session.
Text report_pdf_path(const Session& session, TextView folio);

// What its pages say of themselves.
pages::DocumentProperties report_properties(const ReportedDocument& document);

// Writes the PDF file whole or not at all; gives what could not be shown as the layout wants it. Throws Error
// as printing::compose and pages::PdfFile do.
std::vector<printing::Remark> export_document(const printing::Layout& layout, Connection& connection,
                                              const ReportedDocument& document, const Text& path);

// Collects pages for those that take all of them at once.
class PageList : public pages::PageSink
{
public:
    void take(pages::Page page) override { pages.push_back(std::move(page)); }

    std::vector<pages::Page> pages;
};

} // namespace tolvex
