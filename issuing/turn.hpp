// The turn to issue: one document at a time per database and per working folder, so that stations which share
// them take neither each other's folio nor each other's seal.
#pragma once

#include "database/connection.hpp"
#include "platform/file_turn.hpp"

namespace tolvex {

class Turn
{
public:
    static constexpr int longest_wait = 15'000; // milliseconds

    // Waits for its turn at the database, then at the folder, that long in all at most. Where none is to be
    // had (no right to an application lock, a folder that takes no file) there is none to wait for.
    Turn(Connection& connection, const Text& folder, int wait = longest_wait);
    ~Turn();
    Turn(const Turn&) = delete;
    Turn& operator=(const Turn&) = delete;

    // Another station kept its own for longer than that.
    bool waited_in_vain() const { return waited_in_vain_; }

private:
    void wait_at_server();
    std::unique_ptr<FileTurn> wait_at_file(const Text& path);
    std::unique_ptr<FileTurn> wait_for(const Text& path, int between_tries);
    std::int64_t time_left() const;

    Connection& connection_;
    const std::int64_t latest_;
    bool waited_in_vain_ = false;
    bool at_server_ = false;
    std::unique_ptr<FileTurn> at_database_, at_folder_;
};

} // namespace tolvex
