#include "verification/folio_runs.hpp"

#include <algorithm>

namespace tolvex {

bool FolioRuns::add(std::int64_t number)
{
    auto next = last_by_first_.upper_bound(number);
    if (next != last_by_first_.begin()) {
        const auto before = std::prev(next);
        if (number <= before->second) return false;
        if (number == before->second + 1) {
            before->second = number;
            if (next != last_by_first_.end() && next->first == number + 1) {
                before->second = next->second;
                last_by_first_.erase(next);
            }
            return true;
        }
    }
    std::int64_t last = number;
    if (next != last_by_first_.end() && next->first == number + 1) {
        last = next->second;
        next = last_by_first_.erase(next);
    }
    last_by_first_.emplace_hint(next, number, last);
    return true;
}

std::vector<FolioRun> FolioRuns::within(const FolioRun& bounds) const
{
    std::vector<FolioRun> cut;
    auto run = last_by_first_.upper_bound(bounds.first);
    if (run != last_by_first_.begin() && std::prev(run)->second >= bounds.first) --run;
    for (; run != last_by_first_.end() && run->first <= bounds.last; ++run)
        cut.push_back({std::max(run->first, bounds.first), std::min(run->second, bounds.last)});
    return cut;
}

std::vector<FolioRun> FolioRuns::gaps(const FolioRun& bounds) const
{
    return without(bounds, within(bounds));
}

std::optional<std::int64_t> FolioRuns::highest_up_to(std::int64_t limit) const
{
    const auto next = last_by_first_.upper_bound(limit);
    if (next == last_by_first_.begin()) return {};
    return std::min(std::prev(next)->second, limit);
}

std::vector<FolioRun> without(const FolioRun& run, const std::vector<FolioRun>& others)
{
    std::vector<FolioRun> left;
    std::int64_t next = run.first;
    for (const FolioRun& other : others) { // in ascending order
        if (other.first > next) left.push_back({next, std::min(other.first - 1, run.last)});
        next = std::max(next, other.last + 1);
        if (next > run.last) break;
    }
    if (next <= run.last) left.push_back({next, run.last});
    return left;
}

} // namespace tolvex
