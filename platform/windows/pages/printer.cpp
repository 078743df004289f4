// Printers of Windows, which the pages are painted on.
#include "platform/pages/printer.hpp"

#include "platform/windows/pages/paper_output.hpp"

#include <algorithm>

namespace tolvex {

void print_pages(const std::vector<pages::Page>& pages, const PrintJob& job)
{
    PrinterSettings settings(job.printer.empty() ? default_printer() : job.printer);
    if (pages.empty()) return;
    settings.set_paper(pages.front());
    const int times = settings.set_copies(std::max(job.copies, 1), pages.size() == 1);
    put_on_paper(pages, job.title, settings, times);
}

} // namespace tolvex
