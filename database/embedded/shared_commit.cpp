#include "database/embedded/shared_commit.hpp"

#include "core/errors.hpp"

#include <utility>

namespace tolvex::embedded {

namespace {

constexpr int most_sharing = 100;

} // namespace

void SharedCommit::join(const Statement& statement)
{
    const bool is_like = statement.kept() && statement.kept() == std::exchange(last_, statement.kept());
    if (!is_like || count_ == most_sharing) end();
    last_ = statement.kept();
    if (!is_like || (!is_open() && database_.in_transaction())) return;
    if (!is_open()) database_.run("BEGIN IMMEDIATE");
    ++count_;
}

void SharedCommit::end()
{
    last_ = nullptr;
    if (std::exchange(count_, 0) == 0 || !database_.in_transaction()) return;
    try {
        database_.run("COMMIT");
    } catch (const Error&) {
        quietly([&] { database_.run("ROLLBACK"); });
        throw;
    }
}

} // namespace tolvex::embedded
