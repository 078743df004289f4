#include "database/embedded/prepared.hpp"

#include <algorithm>

namespace tolvex::embedded {

namespace {

constexpr std::size_t most_kept = 32;

} // namespace

PreparedStatement* PreparedStatements::idle(TextView shape)
{
    const auto found =
        std::find_if(last_used_first_.begin(), last_used_first_.end(),
                     [&](const PreparedStatement& each) { return !each.runs && each.shape == shape; });
    if (found == last_used_first_.end()) return nullptr;
    last_used_first_.splice(last_used_first_.begin(), last_used_first_, found);
    return &last_used_first_.front();
}

PreparedStatement* PreparedStatements::keep(Text shape, StatementHandle handle)
{
    if (last_used_first_.size() >= most_kept) {
        const auto oldest = std::find_if(last_used_first_.rbegin(), last_used_first_.rend(),
                                         [](const PreparedStatement& each) { return !each.runs; });
        if (oldest != last_used_first_.rend()) last_used_first_.erase(std::next(oldest).base());
    }
    last_used_first_.push_front({std::move(shape), std::move(handle)});
    return &last_used_first_.front();
}

} // namespace tolvex::embedded
