#include "verification/folio_runs.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <random>
#include <set>

namespace tolvex {

inline void PrintTo(const FolioRun& run, std::ostream* out) { *out << run.first << ".." << run.last; }

namespace testing {
namespace {

constexpr FolioRun all{std::numeric_limits<std::int64_t>::min(), std::numeric_limits<std::int64_t>::max()};

TEST(FolioRuns, hold_what_a_set_of_numbers_holds_in_whatever_order_it_came)
{
    std::mt19937 random(2011);
    for (int round = 0; round < 200; ++round) {
        FolioRuns runs;
        std::set<std::int64_t> numbers;
        for (int i = 0; i < 40; ++i) {
            const std::int64_t number = random() % 50;
            EXPECT_EQ(runs.add(number), numbers.insert(number).second);
        }
        const FolioRun bounds{static_cast<std::int64_t>(random() % 20),
                              20 + static_cast<std::int64_t>(random() % 30)};
        std::set<std::int64_t> inside, outside;
        for (const FolioRun& run : runs.within(bounds))
            for (auto n = run.first; n <= run.last; ++n) EXPECT_TRUE(inside.insert(n).second);
        for (const FolioRun& gap : runs.gaps(bounds))
            for (auto n = gap.first; n <= gap.last; ++n) EXPECT_TRUE(outside.insert(n).second);
        for (auto n = bounds.first; n <= bounds.last; ++n) {
            EXPECT_EQ(inside.contains(n), numbers.contains(n));
            EXPECT_EQ(outside.contains(n), !numbers.contains(n));
        }
        const auto above = numbers.upper_bound(bounds.last);
        EXPECT_EQ(runs.highest_up_to(bounds.last),
                  above == numbers.begin() ? std::nullopt : std::optional(*std::prev(above)));
    }
}

TEST(FolioRuns, of_folios_without_gaps_are_one)
{
    FolioRuns runs;
    for (int i = 1; i <= 1'000; i += 2) runs.add(i);
    for (int i = 1'000; i > 0; i -= 2) runs.add(i);
    EXPECT_EQ(runs.within(all), (std::vector<FolioRun>{{1, 1'000}}));
}

} // namespace
} // namespace testing
} // namespace tolvex
