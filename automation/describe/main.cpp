// describe_surface FOLDER: writes what the public surface looks like from outside, for both bitnesses:
// TOLVEX-win32.tlb and TOLVEX-win64.tlb (type libraries, part of the components), TOLVEX.hpp (interfaces for
// C++ hosts), TOLVEX-win32.manifest and TOLVEX-win64.manifest (use without registration).
#include "automation/describe/descriptions.hpp"

#include <cstdio>
#include <exception>

using namespace tolvex::automation;

int wmain(int count, wchar_t** arguments)
try {
    if (count != 2) {
        std::fputs("describe_surface FOLDER\n", stderr);
        return 2;
    }
    const std::wstring folder = std::wstring(arguments[1]) + L"\\";
    write_type_library(folder + L"TOLVEX-win32.tlb", SYS_WIN32);
    write_type_library(folder + L"TOLVEX-win64.tlb", SYS_WIN64);
    write_file(folder + L"TOLVEX.hpp", utf8(cpp_header()));
    write_file(folder + L"TOLVEX-win32.manifest", utf8(manifest(L"x86")));
    write_file(folder + L"TOLVEX-win64.manifest", utf8(manifest(L"amd64")));
    return 0;
} catch (const std::exception& error) {
    std::fprintf(stderr, "describe_surface: %s\n", error.what());
    return 1;
}
