#include "trials/held.hpp"

#include <filesystem>
#include <fstream>
#include <unistd.h>

namespace tolvex::trials {

namespace {

double resident_mebibytes()
{
    long whole = 0, resident = 0;
    std::ifstream("/proc/self/statm") >> whole >> resident;
    return static_cast<double>(resident) * static_cast<double>(sysconf(_SC_PAGESIZE)) / 1048576;
}

long open_descriptors()
{
    const std::filesystem::directory_iterator all("/proc/self/fd");
    return std::distance(begin(all), end(all)) - 1; // without that of the folder itself
}

} // namespace

Held held() { return {resident_mebibytes(), {{"descriptors", open_descriptors()}}}; }

} // namespace tolvex::trials
