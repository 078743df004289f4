#include "database/embedded/opening.hpp"

#include "core/errors.hpp"
#include "database/embedded/schema.hpp"
#include "database/embedded/tsql/functions.hpp"

#include <algorithm>

namespace tolvex::embedded {

namespace {

// A writer is done in milliseconds. Who waits longer than this waits for somebody who has stopped.
constexpr int longest_wait_seconds = 10;

int wait_milliseconds(int timeout_seconds)
{
    const bool endless = timeout_seconds <= 0;
    return (endless ? longest_wait_seconds : std::min(timeout_seconds, longest_wait_seconds)) * 1000;
}

// Whether the file took the change. SQLite does not wait here by itself while another process opens the same
// new file, since it would have to upgrade a lock.
bool switch_to_write_ahead_log(Database& database, int longest_wait)
{
    constexpr int pause = 10; // milliseconds
    for (int waited = 0;; waited += pause) {
        try {
            return database.answer("PRAGMA journal_mode=WAL") == "wal";
        } catch (const Error&) {
            const bool busy = (sqlite3_errcode(database.handle()) & 0xFF) == SQLITE_BUSY;
            if (!busy || waited >= longest_wait) throw;
        }
        sqlite3_sleep(pause);
    }
}

void create_schema(Database& database)
{
    if (database.answer("SELECT count(*) FROM sqlite_master") != "0") return;
    database.run("BEGIN IMMEDIATE");
    // Another process may have been quicker.
    if (database.answer("SELECT count(*) FROM sqlite_master") == "0") database.run(tables_and_indexes);
    database.run("COMMIT");
}

} // namespace

bool prepare(Database& database, int timeout_seconds)
{
    const int longest_wait = wait_milliseconds(timeout_seconds);
    database.check(sqlite3_busy_timeout(database.handle(), longest_wait));
    database.check(add_functions(database.handle()));
    database.run("PRAGMA encoding='UTF-16le'");
    const bool write_ahead = switch_to_write_ahead_log(database, longest_wait);
    database.run("PRAGMA synchronous=FULL");
    create_schema(database);
    database.limit_steps(timeout_seconds);
    return write_ahead;
}

} // namespace tolvex::embedded
