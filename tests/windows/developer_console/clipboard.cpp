// Writes the text that the clipboard holds to a file, as UTF-16 with its mark: a script that hosts can run.
#include <windows.h>

#include <fstream>

int wmain(int, wchar_t** arguments)
{
    if (!OpenClipboard(nullptr)) return 1;
    const auto* text = static_cast<const wchar_t*>(GlobalLock(GetClipboardData(CF_UNICODETEXT)));
    if (!text) return 2;
    std::ofstream file(arguments[1], std::ios::binary);
    file.write("\xff\xfe", 2).write(reinterpret_cast<const char*>(text), wcslen(text) * sizeof(wchar_t));
    CloseClipboard();
    return file.good() ? 0 : 3;
}
