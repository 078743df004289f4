// The tabs of a form's pages: a strip of names, one of which is chosen.
#pragma once

#include "platform/forms.hpp"
#include "platform/windows/windows.hpp"

#include <commctrl.h>

namespace tolvex {

class PageTabs
{
public:
    PageTabs(HWND form, const std::vector<TextView>& pages);

    HWND window() const { return window_; }
    TextView chosen() const;
    // The tab after the chosen one, or before it; the first follows the last.
    void choose_next(bool backwards);

private:
    int chosen_index() const;

    const std::vector<TextView> pages_;
    const HWND window_;
};

} // namespace tolvex
