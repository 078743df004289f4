#include "platform/folder_watch.hpp"

#include "platform/files.hpp"
#include "platform/windows/windows.hpp"

namespace tolvex {

namespace {

constexpr DWORD changes =
    FILE_NOTIFY_CHANGE_FILE_NAME | FILE_NOTIFY_CHANGE_SIZE | FILE_NOTIFY_CHANGE_LAST_WRITE;

class Notices : public FolderWatch
{
public:
    explicit Notices(const Text& folder) : notice_(FindFirstChangeNotificationW(wide(folder), FALSE, changes))
    {
        if (notice_ == INVALID_HANDLE_VALUE) throw path_error(folder, system_message(GetLastError()));
    }
    ~Notices() override { FindCloseChangeNotification(notice_); }

    void wait(int milliseconds) override
    {
        if (WaitForSingleObject(notice_, static_cast<DWORD>(milliseconds)) == WAIT_OBJECT_0)
            FindNextChangeNotification(notice_);
    }

private:
    const HANDLE notice_;
};

} // namespace

std::unique_ptr<FolderWatch> FolderWatch::of(TextView folder)
{
    return std::make_unique<Notices>(files::native_path(folder));
}

} // namespace tolvex
