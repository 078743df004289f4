// A printer of the system and how it is set for a job: paper, direction, copies.
#pragma once

#include "platform/pages/page.hpp"
#include "platform/windows/windows.hpp"

namespace tolvex {

// The one that the system prints on when none is named. Throws Error 482 when there is none.
Text default_printer();

class PrinterSettings
{
public:
    // As the printer is set by itself. Throws Error 482 when there is no such printer.
    explicit PrinterSettings(const Text& printer);
    // As a user has chosen.
    PrinterSettings(const Text& printer, const DEVMODEW& chosen);

    const Text& printer() const { return printer_; }
    const DEVMODEW& get() const { return *reinterpret_cast<const DEVMODEW*>(bytes_.data()); }

    // Paper and direction for pages of that size: the printer's nearest paper, else one to measure.
    void set_paper(const pages::Page& page);
    // Gives back how many times the pages have to be sent: once when the printer itself makes the copies.
    int set_copies(int copies, bool one_page);

private:
    DEVMODEW& mode() { return *reinterpret_cast<DEVMODEW*>(bytes_.data()); }
    int capability(WORD which) const;
    // Lets the driver make its own settings agree with the common ones.
    void settle();

    Text printer_;
    std::vector<BYTE> bytes_; // a DEVMODE and what the driver keeps after it
};

// The error of a printer, with the system's words for what went wrong last.
Error last_printer_error(const Text& printer);

} // namespace tolvex
