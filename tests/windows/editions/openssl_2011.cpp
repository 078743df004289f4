// openssl as it was in 2011: runs openssl-actual.exe beside it and ends the lines of the text that it encodes
// with bare line feeds.
#include <windows.h>

#include <cstdio>
#include <string>

namespace {

std::wstring own_folder()
{
    wchar_t path[MAX_PATH];
    GetModuleFileNameW(nullptr, path, MAX_PATH);
    const std::wstring whole = path;
    return whole.substr(0, whole.find_last_of(L'\\') + 1);
}

DWORD run(std::wstring command)
{
    STARTUPINFOW start{};
    start.cb = sizeof start;
    PROCESS_INFORMATION process{};
    if (!CreateProcessW(nullptr, command.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &start,
                        &process))
        return 1;
    WaitForSingleObject(process.hProcess, INFINITE);
    DWORD code = 1;
    GetExitCodeProcess(process.hProcess, &code);
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
    return code;
}

std::string read(const wchar_t* path)
{
    std::string bytes;
    if (FILE* file = _wfopen(path, L"rb")) {
        for (int c = std::fgetc(file); c != EOF; c = std::fgetc(file)) bytes += static_cast<char>(c);
        std::fclose(file);
    }
    return bytes;
}

void write(const wchar_t* path, const std::string& bytes)
{
    if (FILE* file = _wfopen(path, L"wb")) {
        std::fwrite(bytes.data(), 1, bytes.size(), file);
        std::fclose(file);
    }
}

} // namespace

int wmain(int count, wchar_t** arguments)
{
    std::wstring command = own_folder() + L"openssl-actual.exe";
    const wchar_t* output = nullptr;
    for (int i = 1; i < count; ++i) {
        command += std::wstring(L" ") + arguments[i];
        if (std::wstring(arguments[i]) == L"-out" && i + 1 < count) output = arguments[i + 1];
    }
    const DWORD code = run(command);
    if (output && std::wstring(arguments[1]) == L"enc") {
        std::string encoded = read(output);
        std::erase(encoded, '\r');
        write(output, encoded);
    }
    return static_cast<int>(code);
}
