#include "support/watched_disk.hpp"

#include <utility>

namespace tolvex::testing {

WatchedDisk* WatchedDisk::current_ = nullptr;

WatchedDisk::WatchedDisk() : actual_(sqlite3_vfs_find(nullptr)), watched_(*actual_)
{
    current_ = this;
    watched_.zName = "watched";
    watched_.xOpen = open;
    sqlite3_vfs_register(&watched_, 1);
}

WatchedDisk::~WatchedDisk()
{
    sqlite3_vfs_unregister(&watched_);
    sqlite3_vfs_register(actual_, 1);
    current_ = nullptr;
}

std::string WatchedDisk::log_events() { return std::exchange(events_, {}); }

int WatchedDisk::open(sqlite3_vfs*, const char* name, sqlite3_file* file, int flags, int* flags_given)
{
    WatchedDisk& disk = *current_;
    const int code = disk.actual_->xOpen(disk.actual_, name, file, flags, flags_given);
    if (code != SQLITE_OK || !(flags & SQLITE_OPEN_WAL)) return code;
    disk.actual_log_ = file->pMethods;
    disk.watched_log_ = *file->pMethods;
    disk.watched_log_.xWrite = write;
    disk.watched_log_.xSync = flush;
    file->pMethods = &disk.watched_log_;
    return code;
}

int WatchedDisk::write(sqlite3_file* log, const void* bytes, int size, sqlite3_int64 place)
{
    if (current_->full) return SQLITE_FULL;
    if (!current_->events_.ends_with('w')) current_->events_ += 'w';
    return current_->actual_log_->xWrite(log, bytes, size, place);
}

int WatchedDisk::flush(sqlite3_file* log, int flags)
{
    current_->events_ += 'f';
    if (current_->on_flush) current_->on_flush();
    return current_->actual_log_->xSync(log, flags);
}

} // namespace tolvex::testing
