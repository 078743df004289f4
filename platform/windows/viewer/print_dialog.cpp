#include "platform/windows/viewer/print_dialog.hpp"

#include "platform/windows/component_call.hpp"

#include <commdlg.h>

#include <algorithm>

namespace tolvex {

namespace {

// Memory that the dialog takes and gives back.
struct FreeGlobal
{
    void operator()(void* memory) const { GlobalFree(memory); }
};
using GlobalMemory = std::unique_ptr<void, FreeGlobal>;

class Locked
{
public:
    explicit Locked(HGLOBAL memory) : memory_(memory), bytes_(static_cast<BYTE*>(GlobalLock(memory))) {}
    ~Locked() { GlobalUnlock(memory_); }
    Locked(const Locked&) = delete;

    BYTE* bytes() const { return bytes_; }

private:
    const HGLOBAL memory_;
    BYTE* const bytes_;
};

// The default printer with the paper of the pages; null where there is no printer.
HGLOBAL first_settings(const std::vector<pages::Page>& pages)
{
    try {
        PrinterSettings settings(default_printer());
        settings.set_paper(pages.front());
        const DEVMODEW& mode = settings.get();
        const std::size_t size = std::size_t{mode.dmSize} + mode.dmDriverExtra;
        const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, size);
        if (memory) std::copy_n(reinterpret_cast<const BYTE*>(&mode), size, Locked(memory).bytes());
        return memory;
    } catch (const Error&) {
        return nullptr;
    }
}

Text chosen_printer(HGLOBAL names)
{
    const Locked locked(names);
    const auto* const described = reinterpret_cast<const DEVNAMES*>(locked.bytes());
    return from_wide(reinterpret_cast<const wchar_t*>(locked.bytes()) + described->wDeviceOffset);
}

bool is_accepted(PRINTDLGW& dialog)
{
    const Interlude until_it_is_chosen;
    return PrintDlgW(&dialog);
}

} // namespace

std::optional<PrintChoice> ask_how_to_print(HWND owner, const std::vector<pages::Page>& pages)
{
    const auto last_page = static_cast<WORD>(std::min<std::size_t>(pages.size(), 0xFFFE));
    PRINTDLGW dialog{};
    dialog.lStructSize = sizeof dialog;
    dialog.hwndOwner = owner;
    dialog.Flags = PD_ALLPAGES | PD_NOSELECTION | PD_COLLATE;
    dialog.hDevMode = first_settings(pages);
    dialog.nFromPage = dialog.nMinPage = 1;
    dialog.nToPage = dialog.nMaxPage = last_page;
    dialog.nCopies = 1;
    const bool accepted = is_accepted(dialog);
    const GlobalMemory mode(dialog.hDevMode), names(dialog.hDevNames);
    if (!accepted) return {};
    const bool only_some = dialog.Flags & PD_PAGENUMS;
    const std::size_t from = only_some ? std::clamp<std::size_t>(dialog.nFromPage, 1, pages.size()) : 1;
    const std::size_t to =
        only_some ? std::clamp<std::size_t>(dialog.nToPage, from, pages.size()) : pages.size();
    const Locked locked(mode.get());
    return PrintChoice{
        PrinterSettings(chosen_printer(names.get()), *reinterpret_cast<const DEVMODEW*>(locked.bytes())),
        from - 1, to - from + 1, std::max<int>(dialog.nCopies, 1)};
}

} // namespace tolvex
