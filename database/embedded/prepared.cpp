#include "database/embedded/prepared.hpp"

#include <algorithm>

namespace tolvex::embedded {

namespace {

constexpr std::size_t most_kept = 32;

} // namespace

std::optional<PreparedStatements::Match> PreparedStatements::match(TextView statement)
{
    for (auto each = last_used_first_.begin(); each != last_used_first_.end(); ++each) {
        if (each->runs) continue;
        auto literals = each->shape.literals_of(statement);
        if (!literals) continue;
        last_used_first_.splice(last_used_first_.begin(), last_used_first_, each);
        return Match{*each, std::move(*literals)};
    }
    return {};
}

PreparedStatement& PreparedStatements::keep(Shape shape, StatementHandle handle)
{
    if (last_used_first_.size() >= most_kept) {
        const auto oldest = std::find_if(last_used_first_.rbegin(), last_used_first_.rend(),
                                         [](const PreparedStatement& each) { return !each.runs; });
        if (oldest != last_used_first_.rend()) last_used_first_.erase(std::next(oldest).base());
    }
    last_used_first_.push_front({std::move(shape), std::move(handle)});
    return last_used_first_.front();
}

} // namespace tolvex::embedded
