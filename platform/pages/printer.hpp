// Port: printers of the host.
#pragma once

#include "platform/pages/page.hpp"

namespace tolvex {

struct PrintJob
{
    Text title;
    Text printer; // empty: the default one
    int copies = 1;
};

// Prints all pages without asking anything. Throws Error 482 when there is no such printer or it does not
// take the job, with the system's own words.
void print_pages(const std::vector<pages::Page>& pages, const PrintJob& job);

} // namespace tolvex
