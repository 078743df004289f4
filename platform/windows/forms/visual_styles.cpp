#include "platform/windows/forms/visual_styles.hpp"

#include <commctrl.h>

namespace tolvex {

namespace {

// The component's manifest 2 asks for version 6 of the common controls.
HANDLE create_context()
{
    ACTCTXW wanted{};
    wanted.cbSize = sizeof wanted;
    wanted.dwFlags = ACTCTX_FLAG_HMODULE_VALID | ACTCTX_FLAG_RESOURCE_NAME_VALID;
    wanted.hModule = this_module();
    wanted.lpResourceName = MAKEINTRESOURCEW(2);
    return CreateActCtxW(&wanted);
}

} // namespace

VisualStyles::VisualStyles()
{
    static const HANDLE context =
        create_context(); // for the life of the process, as are its windows' classes
    if (context != INVALID_HANDLE_VALUE) ActivateActCtx(context, &cookie_);
    const INITCOMMONCONTROLSEX classes{sizeof classes, ICC_STANDARD_CLASSES | ICC_LISTVIEW_CLASSES |
                                                           ICC_BAR_CLASSES | ICC_TAB_CLASSES};
    InitCommonControlsEx(&classes);
}

VisualStyles::~VisualStyles()
{
    if (cookie_) DeactivateActCtx(0, cookie_);
}

} // namespace tolvex
