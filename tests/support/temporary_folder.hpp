// A folder of its own for a test, removed with all that it holds.
#pragma once

#include "tolvex/types.hpp"

#include <filesystem>
#include <random>

namespace tolvex {

class TemporaryFolder
{
public:
    TemporaryFolder()
        : path_(std::filesystem::temp_directory_path() / ("tolvex_" + std::to_string(std::random_device()())))
    {
        std::filesystem::create_directories(path_);
    }

    ~TemporaryFolder()
    {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }

    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    const std::filesystem::path& path() const { return path_; }
    Text file(const char* name) const { return (path_ / name).u16string(); }

private:
    std::filesystem::path path_;
};

} // namespace tolvex
