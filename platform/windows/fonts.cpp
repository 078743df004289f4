// Font files by the lists that Windows keeps of the installed fonts: the machine's and the user's.
#include "platform/pages/fonts.hpp"
#include "core/text.hpp"

#include "platform/windows/windows.hpp"

#include <shlobj.h>

#include <algorithm>
#include <initializer_list>
#include <optional>

namespace tolvex::pages {

namespace {

// --- the lists ---

// "Arial Bold Italic", as one of the names in an entry.
struct InstalledFont
{
    Text name;
    FontFile file;
};

struct CloseKey
{
    using pointer = HKEY;
    void operator()(HKEY key) const { RegCloseKey(key); }
};
using Key = std::unique_ptr<HKEY, CloseKey>;

Text fonts_folder()
{
    wchar_t path[MAX_PATH] = {};
    SHGetFolderPathW(nullptr, CSIDL_FONTS, nullptr, SHGFP_TYPE_CURRENT, path);
    return from_wide(path);
}

// The value "MS Gothic & MS PGothic (TrueType)" names the fonts of a collection in their order.
void add_fonts(std::vector<InstalledFont>& fonts, TextView value, const Text& file)
{
    const bool is_whole_path = file.find(u'\\') != Text::npos;
    const Text path = is_whole_path ? file : fonts_folder() + u"\\" + file;
    unsigned index = 0;
    for (const Text& name : split(value.substr(0, value.rfind(u" (")), u'&'))
        fonts.push_back({trim(name), {path, index++}});
}

bool holds_true_type(const Text& file)
{
    const Text ending = lower_case(file.substr(file.size() - std::min<std::size_t>(file.size(), 4)));
    return ending == u".ttf" || ending == u".ttc";
}

void add_fonts_of(std::vector<InstalledFont>& fonts, HKEY root)
{
    HKEY opened = nullptr;
    if (RegOpenKeyExW(root, L"Software\\Microsoft\\Windows NT\\CurrentVersion\\Fonts", 0,
                      KEY_READ | KEY_WOW64_64KEY, &opened) != ERROR_SUCCESS)
        return;
    const Key key(opened);
    for (DWORD i = 0;; ++i) {
        wchar_t name[512], file[1'024] = {};
        DWORD name_size = std::size(name), file_size = sizeof file - sizeof *file, kind = 0;
        const LONG result = RegEnumValueW(key.get(), i, name, &name_size, nullptr, &kind,
                                          reinterpret_cast<BYTE*>(file), &file_size);
        if (result == ERROR_NO_MORE_ITEMS) return;
        if (result == ERROR_SUCCESS && kind == REG_SZ && holds_true_type(from_wide(file)))
            add_fonts(fonts, from_wide(name), from_wide(file));
    }
}

std::vector<InstalledFont> installed_fonts()
{
    std::vector<InstalledFont> fonts;
    add_fonts_of(fonts, HKEY_LOCAL_MACHINE);
    add_fonts_of(fonts, HKEY_CURRENT_USER);
    return fonts;
}

// --- the choice ---

// Families with the same metrics, each as good as the others.
std::vector<Text> families_as_good(const Text& family)
{
    static const std::vector<std::vector<Text>> groups = {
        {u"Arial", u"Liberation Sans", u"Arimo", u"Helvetica"},
        {u"Arial Narrow", u"Liberation Sans Narrow"},
        {u"Times New Roman", u"Liberation Serif", u"Tinos", u"Times"},
        {u"Courier New", u"Liberation Mono", u"Cousine", u"Courier"},
        {u"Calibri", u"Carlito"},
        {u"Cambria", u"Caladea"}};
    std::vector<Text> families = {family};
    for (const auto& group : groups)
        if (std::any_of(group.begin(), group.end(),
                        [&](auto& one) { return equal_ignoring_case(one, family); }))
            families.insert(families.end(), group.begin(), group.end());
    return families;
}

struct Style
{
    bool bold = false, italic = false;
};

bool is_one_of(const Text& word, std::initializer_list<TextView> words)
{
    return std::any_of(words.begin(), words.end(),
                       [&](TextView one) { return equal_ignoring_case(word, one); });
}

// Of a font by its name, in the languages of Windows that are met here; none when it is of another family.
std::optional<Style> style_in(const Text& name, const Text& family)
{
    if (!starts_with_ignoring_case(name, family)) return {};
    if (name.size() > family.size() && name[family.size()] != u' ') return {};
    Style style;
    for (const Text& word : split(name.substr(family.size()), u' ')) {
        if (is_one_of(word, {u"Bold", u"Negrita"}))
            style.bold = true;
        else if (is_one_of(word, {u"Italic", u"Oblique", u"Cursiva"}))
            style.italic = true;
        else if (!is_one_of(word, {u"", u"Regular", u"Normal"}))
            return {};
    }
    return style;
}

} // namespace

// The weight counts more than the slant where a family lacks a style.
FontFile find_font_file(const Font& font)
{
    static const std::vector<InstalledFont> fonts = installed_fonts();
    for (const Text& family : families_as_good(font.family)) {
        const FontFile* nearest = nullptr;
        int least = 4;
        for (const InstalledFont& installed : fonts) {
            const std::optional<Style> style = style_in(installed.name, family);
            if (!style) continue;
            const int difference =
                (style->bold != font.bold ? 2 : 0) + (style->italic != font.italic ? 1 : 0);
            if (difference >= least) continue;
            least = difference;
            nearest = &installed.file;
        }
        if (nearest) return *nearest;
    }
    return {};
}

} // namespace tolvex::pages
