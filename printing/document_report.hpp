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

// Collects pages for those that take all of them at once.
class PageList : public pages::PageSink
{
public:
    void take(pages::Page page) override { pages.push_back(std::move(page)); }

    std::vector<pages::Page> pages;
};

} // namespace tolvex
