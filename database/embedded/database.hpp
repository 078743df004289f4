// One open file of the embedded database, and the one door that the engine's calls go through.
#pragma once

#include "database/embedded/prepared.hpp"
#include "database/embedded/rights.hpp"
#include "tolvex/types.hpp"

#include <chrono>
#include <memory>
#include <sqlite3.h>
#include <vector>

namespace tolvex::embedded {

// Failures name the file and say why and what to do.
class Database
{
public:
    // Opens the file or creates it; the engine reads it only at the first statement. Throws Error.
    explicit Database(Text file);
    Database(const Database&) = delete;

    const Text& file() const { return file_; }
    sqlite3* handle() const { return handle_.get(); }
    // Throws Error(database_error), with the engine's reason, unless the code says that all went well.
    void check(int code) const;
    // Runs one statement of the engine's own SQL, or several. This and the two below are for what the driver
    // itself has to say and may do anything; statements of callers are restricted (rights.hpp).
    void run(const std::string& sql);
    // First column of the first row of a query.
    std::string answer(const std::string& sql);
    // All rows of a query; Null is empty.
    std::vector<std::vector<std::string>> rows(const std::string& sql);
    // From here on a step of a caller's statement is ended after so many seconds; never with 0.
    void limit_steps(int seconds);
    // One step of a caller's statement, and its code.
    int step(sqlite3_stmt* statement) const;
    bool in_transaction() const { return !sqlite3_get_autocommit(handle()); }
    PreparedStatements& prepared() const { return prepared_; }

private:
    struct Close
    {
        void operator()(sqlite3* handle) const { sqlite3_close_v2(handle); }
    };

    using Clock = std::chrono::steady_clock;

    static int takes_too_long(void* database) noexcept;
    bool was_refused(const Text& words) const;
    Text why(int code) const;

    Text file_;
    Clock::duration longest_step_{0};
    mutable Clock::time_point latest_ = Clock::time_point::max(); // of the step under way
    mutable Rights rights_;
    std::unique_ptr<sqlite3, Close> handle_;
    mutable PreparedStatements prepared_; // they go before the handle does
};

} // namespace tolvex::embedded
