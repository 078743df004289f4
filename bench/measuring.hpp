// What the measurements share: how they take their times, and the one table that they all write.
#pragma once

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <fmt/core.h>
#include <string>
#include <sys/resource.h>
#include <vector>

namespace tolvex::bench {

template <class Operation>
double milliseconds(Operation operation)
{
    const auto start = std::chrono::steady_clock::now();
    operation();
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
}

inline double median(std::vector<double> times)
{
    std::nth_element(times.begin(), times.begin() + times.size() / 2, times.end());
    return times[times.size() / 2];
}

// Of this process since it began.
inline double peak_mebibytes()
{
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss / 1024.0;
}

inline void check(bool succeeded, const std::string& step)
{
    if (succeeded) return;
    fmt::print(stderr, "{}: failed\n", step);
    std::exit(1);
}

// Runs a command; ends this process when it fails.
inline void run(const std::string& command) { check(std::system(command.c_str()) == 0, command); }

// A row of the table: what was measured, how often a second it gets done, the milliseconds of one, this
// process's peak memory, and what it is compared with.
inline void row(const std::string& what, double milliseconds_each, double mebibytes = 0,
                const std::string& beside = {})
{
    fmt::print("{:<46} {:>9.1f} {:>11.3f} {:>9} {}\n", what, 1000 / milliseconds_each, milliseconds_each,
               mebibytes > 0 ? fmt::format("{:.1f}", mebibytes) : "", beside);
    std::fflush(stdout);
}

} // namespace tolvex::bench
