#include "platform/windows/pages/printer_settings.hpp"

#include <winspool.h>

#include <algorithm>
#include <cmath>
#include <optional>

namespace tolvex {

namespace {

struct ClosePrinterHandle
{
    void operator()(HANDLE printer) const { ClosePrinter(printer); }
};
using PrinterHandle = std::unique_ptr<void, ClosePrinterHandle>;

PrinterHandle open_printer(const Text& name)
{
    HANDLE opened = nullptr;
    Text writable = name;
    if (!OpenPrinterW(wide(writable), &opened, nullptr)) throw last_printer_error(name);
    return PrinterHandle(opened);
}

// --- paper, in tenths of a millimetre as the system measures it ---

int tenths(double points) { return static_cast<int>(std::lround(points * 254 / 72)); }

struct Paper
{
    short number;
    LONG width, length;
};

std::vector<Paper> papers_of(const Text& printer)
{
    const auto ask = [&](WORD what, void* answer) {
        return DeviceCapabilitiesW(wide(printer), nullptr, what, static_cast<wchar_t*>(answer), nullptr);
    };
    const int count = std::max(ask(DC_PAPERS, nullptr), 0);
    if (ask(DC_PAPERSIZE, nullptr) != count) return {};
    std::vector<WORD> numbers(static_cast<std::size_t>(count));
    std::vector<POINT> sizes(numbers.size());
    ask(DC_PAPERS, numbers.data());
    ask(DC_PAPERSIZE, sizes.data());
    std::vector<Paper> papers;
    for (std::size_t i = 0; i < numbers.size(); ++i)
        papers.push_back({static_cast<short>(numbers[i]), sizes[i].x, sizes[i].y});
    return papers;
}

std::optional<Paper> nearest_paper(const std::vector<Paper>& papers, LONG width, LONG length)
{
    constexpr LONG tolerance = 30;
    const auto difference = [=](const Paper& paper) {
        return std::max(std::abs(paper.width - width), std::abs(paper.length - length));
    };
    const auto nearest = std::min_element(papers.begin(), papers.end(),
                                          [&](auto& a, auto& b) { return difference(a) < difference(b); });
    if (nearest == papers.end() || difference(*nearest) > tolerance) return {};
    return *nearest;
}

} // namespace

Error last_printer_error(const Text& printer)
{
    const DWORD code = GetLastError();
    const Text reason = code == ERROR_SUCCESS ? u"no aceptó el trabajo" : system_message(code);
    return printer_error(printer + u": " + reason);
}

Text default_printer()
{
    DWORD size = 0;
    GetDefaultPrinterW(nullptr, &size);
    std::vector<wchar_t> name(size + 1);
    if (!GetDefaultPrinterW(name.data(), &size))
        throw printer_error(u"no hay una impresora predeterminada: " + system_message(GetLastError()));
    return from_wide(name.data());
}

PrinterSettings::PrinterSettings(const Text& printer) : printer_(printer)
{
    const PrinterHandle opened = open_printer(printer_);
    const LONG size = DocumentPropertiesW(nullptr, opened.get(), wide(printer_), nullptr, nullptr, 0);
    if (size < static_cast<LONG>(sizeof(DEVMODEW))) throw last_printer_error(printer_);
    bytes_.resize(static_cast<std::size_t>(size));
    if (DocumentPropertiesW(nullptr, opened.get(), wide(printer_), &mode(), nullptr, DM_OUT_BUFFER) != IDOK)
        throw last_printer_error(printer_);
}

PrinterSettings::PrinterSettings(const Text& printer, const DEVMODEW& chosen)
    : printer_(printer), bytes_(reinterpret_cast<const BYTE*>(&chosen),
                                reinterpret_cast<const BYTE*>(&chosen) + chosen.dmSize + chosen.dmDriverExtra)
{}

void PrinterSettings::set_paper(const pages::Page& page)
{
    const bool lies = page.width > page.height;
    const int width = tenths(std::min(page.width, page.height)),
              length = tenths(std::max(page.width, page.height));
    const auto paper = nearest_paper(papers_of(printer_), width, length);
    DEVMODEW& mode = this->mode();
    mode.dmFields &= ~static_cast<DWORD>(DM_FORMNAME | DM_PAPERWIDTH | DM_PAPERLENGTH);
    mode.dmFields |= DM_ORIENTATION | DM_PAPERSIZE;
    mode.dmOrientation = lies ? DMORIENT_LANDSCAPE : DMORIENT_PORTRAIT;
    mode.dmPaperSize = paper ? paper->number : DMPAPER_USER;
    if (!paper) {
        mode.dmFields |= DM_PAPERWIDTH | DM_PAPERLENGTH;
        mode.dmPaperWidth = static_cast<short>(width);
        mode.dmPaperLength = static_cast<short>(length);
    }
    settle();
}

int PrinterSettings::set_copies(int copies, bool one_page)
{
    const bool together = one_page || capability(DC_COLLATE) == 1;
    const int by_printer = together && capability(DC_COPIES) >= copies ? copies : 1;
    DEVMODEW& mode = this->mode();
    mode.dmFields |= DM_COPIES;
    mode.dmCopies = static_cast<short>(by_printer);
    if (by_printer > 1 && !one_page) {
        mode.dmFields |= DM_COLLATE;
        mode.dmCollate = DMCOLLATE_TRUE;
    }
    settle();
    return by_printer == copies ? 1 : copies;
}

int PrinterSettings::capability(WORD which) const
{
    return DeviceCapabilitiesW(wide(printer_), nullptr, which, nullptr, nullptr);
}

void PrinterSettings::settle()
{
    const PrinterHandle opened = open_printer(printer_);
    std::vector<BYTE> settled = bytes_;
    if (DocumentPropertiesW(nullptr, opened.get(), wide(printer_),
                            reinterpret_cast<DEVMODEW*>(settled.data()), &mode(),
                            DM_IN_BUFFER | DM_OUT_BUFFER) != IDOK)
        throw last_printer_error(printer_);
    bytes_ = settled;
}

} // namespace tolvex
