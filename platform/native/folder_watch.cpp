#include "platform/folder_watch.hpp"

#include "core/errors.hpp"
#include "platform/native/host_path.hpp"
#include "platform/native/reason_of.hpp"

#include <cerrno>
#include <poll.h>
#include <sys/inotify.h>
#include <unistd.h>

namespace tolvex {

namespace {

constexpr unsigned changes = IN_CREATE | IN_MODIFY | IN_CLOSE_WRITE | IN_MOVED_TO;

class Notices : public FolderWatch
{
public:
    explicit Notices(const std::string& folder) : descriptor_(inotify_init1(IN_NONBLOCK | IN_CLOEXEC))
    {
        if (descriptor_ >= 0 && inotify_add_watch(descriptor_, folder.c_str(), changes) >= 0) return;
        const int error = errno;
        if (descriptor_ >= 0) close(descriptor_);
        throw path_error(to_text(folder), reason_of(error));
    }
    ~Notices() override { close(descriptor_); }

    void wait(int milliseconds) override
    {
        pollfd notices{descriptor_, POLLIN, 0};
        if (poll(&notices, 1, milliseconds) <= 0) return;
        char told[4096];
        while (read(descriptor_, told, sizeof told) > 0) continue;
    }

private:
    const int descriptor_;
};

} // namespace

std::unique_ptr<FolderWatch> FolderWatch::of(TextView folder)
{
    return std::make_unique<Notices>(files::host_path(folder).string());
}

} // namespace tolvex
