#include "platform/windows/choosers.hpp"

#include "core/text.hpp"
#include "platform/windows/windows.hpp"

#include <commdlg.h>
#include <shlobj.h>

#include <memory>

namespace tolvex {

namespace {

constexpr std::size_t longest_path = 255; // as long as the system's own buffers were

struct FreeItemList
{
    void operator()(ITEMIDLIST* list) const { CoTaskMemFree(list); }
};

} // namespace

Text choose_folder(WindowHandle owner, const Text& title)
{
    wchar_t display_name[MAX_PATH] = {}, path[MAX_PATH] = {};
    BROWSEINFOW browse{};
    browse.hwndOwner = reinterpret_cast<HWND>(owner);
    browse.pszDisplayName = display_name;
    browse.lpszTitle = wide(title);
    browse.ulFlags = BIF_RETURNONLYFSDIRS;
    const std::unique_ptr<ITEMIDLIST, FreeItemList> picked(SHBrowseForFolderW(&browse));
    if (!picked || !SHGetPathFromIDListW(picked.get(), path)) return {};
    return clip(from_wide(path), longest_path);
}

Text choose_file(WindowHandle owner, const Text& title, const FileKind& kind)
{
    const Text filter = kind.description + u'\0' + kind.pattern + u'\0';
    wchar_t path[MAX_PATH] = {};
    OPENFILENAMEW dialog{};
    dialog.lStructSize = sizeof dialog;
    dialog.hwndOwner = reinterpret_cast<HWND>(owner);
    dialog.lpstrFilter = wide(filter);
    dialog.lpstrFile = path;
    dialog.nMaxFile = std::size(path);
    dialog.lpstrTitle = wide(title);
    dialog.Flags = OFN_FILEMUSTEXIST | OFN_PATHMUSTEXIST | OFN_HIDEREADONLY | OFN_NOCHANGEDIR;
    return GetOpenFileNameW(&dialog) ? from_wide(path) : Text();
}

} // namespace tolvex
