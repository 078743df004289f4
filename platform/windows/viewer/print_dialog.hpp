// The system's dialog for printing, with all that a person may choose there.
#pragma once

#include "platform/windows/pages/printer_settings.hpp"

#include <optional>

namespace tolvex {

struct PrintChoice
{
    PrinterSettings settings;
    std::size_t first = 0, count = 0; // of the pages
    int times = 1;
};

// Nothing when the person cancels, or when there is no printer, which the dialog itself tells.
std::optional<PrintChoice> ask_how_to_print(HWND owner, const std::vector<pages::Page>& pages);

} // namespace tolvex
