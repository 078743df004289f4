#include "platform/file_turn.hpp"

#include "core/errors.hpp"
#include "platform/files.hpp"
#include "platform/windows/windows.hpp"

namespace tolvex {

namespace {

// Open without sharing: nobody else gets it, on a server's disk either. It goes with its handle, whoever ends
// the process.
class UnsharedFile : public FileTurn
{
public:
    explicit UnsharedFile(HANDLE handle) : handle_(handle) {}
    ~UnsharedFile() override { CloseHandle(handle_); }

private:
    const HANDLE handle_;
};

// While a closed one is on its way out, opening it is denied.
bool is_taken(DWORD code)
{
    return code == ERROR_SHARING_VIOLATION || code == ERROR_ACCESS_DENIED || code == ERROR_DELETE_PENDING;
}

} // namespace

std::unique_ptr<FileTurn> FileTurn::take(TextView path)
{
    const Text host = files::native_path(path);
    const HANDLE handle =
        CreateFileW(wide(host), GENERIC_READ | GENERIC_WRITE | DELETE, 0, nullptr, OPEN_ALWAYS,
                    FILE_ATTRIBUTE_HIDDEN | FILE_FLAG_DELETE_ON_CLOSE, nullptr);
    if (handle != INVALID_HANDLE_VALUE) return std::make_unique<UnsharedFile>(handle);
    const DWORD code = GetLastError();
    if (is_taken(code)) return nullptr;
    throw path_error(host, system_message(code));
}

} // namespace tolvex
