#include "platform/file_turn.hpp"

#include "core/errors.hpp"
#include "platform/native/host_path.hpp"
#include "platform/native/reason_of.hpp"

#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace tolvex {

namespace {

// The lock belongs to the open file and ends with it, whoever ends the process. Programs that it started
// inherit it: an openssl that outlives a killed station still writes into its folder.
class LockedFile : public FileTurn
{
public:
    explicit LockedFile(std::string path) : path_(std::move(path)), descriptor_(open_file(path_)) {}
    ~LockedFile() override
    {
        if (is_ours_) unlink(path_.c_str());
        close(descriptor_);
    }

    bool lock()
    {
        is_ours_ = flock(descriptor_, LOCK_EX | LOCK_NB) == 0 && is_still_there();
        return is_ours_;
    }

private:
    // Others may have to lock the file too, under another user.
    static int open_file(const std::string& path)
    {
        const int flags = O_CREAT | O_NOFOLLOW;
        int descriptor = open(path.c_str(), O_RDWR | flags, 0666);
        if (descriptor < 0 && errno == EACCES) descriptor = open(path.c_str(), O_RDONLY | flags, 0666);
        if (descriptor < 0) throw path_error(to_text(path), reason_of(errno));
        return descriptor;
    }

    // Who had the turn before removes the file: what we locked may be gone, and another be in its place.
    bool is_still_there() const
    {
        struct stat ours
        {
        }, there{};
        return fstat(descriptor_, &ours) == 0 && stat(path_.c_str(), &there) == 0 &&
               ours.st_ino == there.st_ino && ours.st_dev == there.st_dev;
    }

    const std::string path_;
    const int descriptor_;
    bool is_ours_ = false;
};

} // namespace

std::unique_ptr<FileTurn> FileTurn::take(TextView path)
{
    auto file = std::make_unique<LockedFile>(files::new_host_path(path).string());
    if (!file->lock()) return nullptr;
    return file;
}

} // namespace tolvex
