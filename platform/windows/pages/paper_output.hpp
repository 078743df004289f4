// Pages on the paper of a printer.
#pragma once

#include "platform/windows/pages/printer_settings.hpp"

#include <span>

namespace tolvex {

// Sends the pages that many times as one job. The settings are those of the first page; a page of another
// size gets its own paper. Throws Error 482, and Error 5 when a picture is damaged; nothing is printed then.
void put_on_paper(std::span<const pages::Page> pages, const Text& title, const PrinterSettings& settings,
                  int times);

} // namespace tolvex
