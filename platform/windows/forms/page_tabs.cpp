#include "platform/windows/forms/page_tabs.hpp"

namespace tolvex {

namespace {

// Flat buttons: the body of a tab control would have another colour than what stands in it.
constexpr DWORD style = WS_CHILD | WS_VISIBLE | WS_TABSTOP | TCS_BUTTONS | TCS_FLATBUTTONS | TCS_SINGLELINE;

} // namespace

PageTabs::PageTabs(HWND form, const std::vector<TextView>& pages)
    : pages_(pages), window_(CreateWindowExW(0, WC_TABCONTROLW, nullptr, style, 0, 0, 0, 0, form, nullptr,
                                             this_module(), nullptr))
{
    for (std::size_t i = 0; i < pages_.size(); ++i) {
        Text caption(pages_[i]);
        TCITEMW tab{};
        tab.mask = TCIF_TEXT;
        tab.pszText = wide(caption);
        SendMessageW(window_, TCM_INSERTITEMW, i, reinterpret_cast<LPARAM>(&tab));
    }
}

TextView PageTabs::chosen() const { return pages_.at(static_cast<std::size_t>(chosen_index())); }

void PageTabs::choose_next(bool backwards)
{
    const int count = static_cast<int>(pages_.size()), step = backwards ? count - 1 : 1;
    SendMessageW(window_, TCM_SETCURSEL, static_cast<WPARAM>((chosen_index() + step) % count), 0);
}

int PageTabs::chosen_index() const
{
    const LRESULT index = SendMessageW(window_, TCM_GETCURSEL, 0, 0);
    return index < 0 ? 0 : static_cast<int>(index);
}

} // namespace tolvex
