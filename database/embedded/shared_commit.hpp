// Like statements that follow one another, such as the inserts of a document's lines, share a commit.
#pragma once

#include "database/embedded/statement.hpp"

namespace tolvex::embedded {

// What a crash or a failure leaves is still the work of the first statements, without gaps: whoever runs
// anything else ends the sharing before. Others that write wait for it, so it does not last.
class SharedCommit
{
public:
    explicit SharedCommit(Database& database) : database_(database) {}

    // Before the statement runs. Unless it is like the one before, what was shared so far ends.
    void join(const Statement& statement);
    // Commits. Throws Error when the disk does not take it; nothing of what was shared is stored then.
    void end();
    bool is_open() const { return count_ > 0; }

private:
    Database& database_;
    const PreparedStatement* last_ = nullptr;
    int count_ = 0; // statements that share
};

} // namespace tolvex::embedded
