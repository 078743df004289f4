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

// The dialog for one file of a kind; the texts must outlive it.
struct FileDialog : OPENFILENAMEW
{
    FileDialog(WindowHandle owner, const Text& title, const FileKind& kind)
        : OPENFILENAMEW{}, filter(kind.description + u'\0' + kind.pattern + u'\0')
    {
        lStructSize = sizeof(OPENFILENAMEW);
        hwndOwner = reinterpret_cast<HWND>(owner);
        lpstrFilter = wide(filter);
        lpstrFile = path;
        nMaxFile = std::size(path);
        lpstrTitle = wide(title);
        Flags = OFN_PATHMUSTEXIST | OFN_HIDEREADONLY | OFN_NOCHANGEDIR;
    }

    const Text filter;
    wchar_t path[MAX_PATH] = {};
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
    FileDialog dialog(owner, title, kind);
    dialog.Flags |= OFN_FILEMUSTEXIST;
    return GetOpenFileNameW(&dialog) ? from_wide(dialog.path) : Text();
}

Text choose_new_file(WindowHandle owner, const Text& title, const FileKind& kind, const Text& name)
{
    FileDialog dialog(owner, title, kind);
    name.copy(reinterpret_cast<char16_t*>(dialog.path), std::size(dialog.path) - 1);
    dialog.lpstrDefExt = wide(kind.pattern) + std::size(u"*.") - 1;
    dialog.Flags |= OFN_OVERWRITEPROMPT;
    return GetSaveFileNameW(&dialog) ? from_wide(dialog.path) : Text();
}

} // namespace tolvex
