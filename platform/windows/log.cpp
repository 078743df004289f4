#include "platform/log.hpp"

#include "platform/windows/windows.hpp"

namespace tolvex {

Text log_file_of_environment()
{
    Text name(MAX_PATH, u'\0');
    name.resize(GetEnvironmentVariableW(L"TOLVEX_BITACORA", wide(name), static_cast<DWORD>(name.size())));
    return name;
}

Text process_and_thread()
{
    return to_text(std::to_string(GetCurrentProcessId()) + "." + std::to_string(GetCurrentThreadId()));
}

int millisecond_of_now()
{
    SYSTEMTIME now;
    GetLocalTime(&now);
    return now.wMilliseconds;
}

// In one piece, so that lines of several processes do not mix.
void append_to_log(const Text& file, const std::string& line)
{
    const HANDLE log =
        CreateFileW(wide(file), FILE_APPEND_DATA, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                    nullptr, OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (log == INVALID_HANDLE_VALUE) return;
    DWORD written = 0;
    WriteFile(log, line.data(), static_cast<DWORD>(line.size()), &written, nullptr);
    CloseHandle(log);
}

} // namespace tolvex
