#include "platform/clock.hpp"

#include "support/tables.hpp"

#include <cstdlib>
#include <ctime>
#include <gtest/gtest.h>

namespace tolvex {
namespace {

// Runs with the hours ahead of Greenwich that a host's user has set, and with none again afterwards.
Date now_in_zone(const char* zone)
{
    setenv("TZ", zone, 1);
    tzset();
    const Date now = local_now();
    unsetenv("TZ");
    tzset();
    return now;
}

TEST(Clock, tells_the_time_of_the_users_zone)
{
    const double first_of_1970 = Date::of(1970, 1, 1).days, seconds_a_day = 86'400;
    for (const auto& [zone, hours_ahead] : {std::pair{"UTC0", 0}, {"MST7", -7}, {"LINT-14", 14}}) {
        const double seconds = static_cast<double>(std::time(nullptr)) + hours_ahead * 3600;
        EXPECT_NEAR(now_in_zone(zone).days, first_of_1970 + seconds / seconds_a_day, 2 / seconds_a_day)
            << zone;
    }
}

} // namespace
} // namespace tolvex
