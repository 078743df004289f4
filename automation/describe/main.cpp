// describe FOLDER: writes what the public surface looks like from outside, for both bitnesses:
// TOLVEX-win32.tlb and TOLVEX-win64.tlb (type libraries, part of the components), TOLVEX.hpp (interfaces for
// C++ hosts), TOLVEX-win32.manifest and TOLVEX-win64.manifest (use without registration).
#include "automation/describe/descriptions.hpp"

#include "platform/files.hpp"

#include <cstdio>
#include <exception>

using namespace tolvex;
using namespace tolvex::automation;

namespace {

void write_text(const Text& path, const std::wstring& text)
{
    files::write(path, to_utf8(from_wide(text.c_str())));
}

} // namespace

int wmain(int count, wchar_t** arguments)
try {
    if (count != 2) {
        std::fputs("describe FOLDER\n", stderr);
        return 2;
    }
    const Text folder = from_wide(arguments[1]) + u"\\";
    write_type_library(folder + u"TOLVEX-win32.tlb", SYS_WIN32);
    write_type_library(folder + u"TOLVEX-win64.tlb", SYS_WIN64);
    write_text(folder + u"TOLVEX.hpp", cpp_header());
    write_text(folder + u"TOLVEX-win32.manifest", manifest(L"x86"));
    write_text(folder + u"TOLVEX-win64.manifest", manifest(L"amd64"));
    return 0;
} catch (const std::exception& error) {
    std::fprintf(stderr, "describe: %s\n", error.what());
    return 1;
}
