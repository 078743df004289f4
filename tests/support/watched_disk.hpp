// The disk as the embedded database uses it: while it lives, SQLite's own files note what is written to the
// write-ahead log and when it is flushed. Only databases that are opened meanwhile are watched.
#pragma once

#include <functional>
#include <sqlite3.h>
#include <string>

namespace tolvex::testing {

class WatchedDisk
{
public:
    WatchedDisk();
    ~WatchedDisk();
    WatchedDisk(const WatchedDisk&) = delete;

    // What happened to the log since it was asked last: "w" for writes without a flush between them, "f" for
    // each flush.
    std::string log_events();
    // Called at each flush.
    std::function<void()> on_flush;
    bool full = false; // it takes nothing more

private:
    static int open(sqlite3_vfs*, const char* name, sqlite3_file* file, int flags, int* flags_given);
    static int write(sqlite3_file* log, const void* bytes, int size, sqlite3_int64 place);
    static int flush(sqlite3_file* log, int flags);

    static WatchedDisk* current_;
    sqlite3_vfs* const actual_;
    sqlite3_vfs watched_;
    const sqlite3_io_methods* actual_log_ = nullptr;
    sqlite3_io_methods watched_log_{};
    std::string events_;
};

} // namespace tolvex::testing
