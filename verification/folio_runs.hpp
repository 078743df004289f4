// Numbers in runs without gaps, which take as much memory as there are gaps.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <vector>

namespace tolvex {

struct FolioRun
{
    std::int64_t first = 0, last = 0;

    friend bool operator==(const FolioRun&, const FolioRun&) = default;
};

class FolioRuns
{
public:
    // False when the number is there already.
    bool add(std::int64_t number);
    // What lies between the runs, within the bounds.
    std::vector<FolioRun> gaps(const FolioRun& bounds) const;
    // The runs, cut to the bounds.
    std::vector<FolioRun> within(const FolioRun& bounds) const;
    // The highest number that is no higher than that; nothing when there is none.
    std::optional<std::int64_t> highest_up_to(std::int64_t limit) const;

private:
    std::map<std::int64_t, std::int64_t> last_by_first_;
};

// What of a run lies in none of those runs.
std::vector<FolioRun> without(const FolioRun& run, const std::vector<FolioRun>& others);

} // namespace tolvex
