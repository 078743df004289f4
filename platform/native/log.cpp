#include "platform/log.hpp"

#include <chrono>
#include <cstdlib>
#include <fcntl.h>
#include <unistd.h>

namespace tolvex {

Text log_file_of_environment()
{
    const char* name = std::getenv("TOLVEX_BITACORA");
    return name ? to_text(name) : Text();
}

Text process_and_thread() { return to_text(std::to_string(getpid()) + "." + std::to_string(gettid())); }

int millisecond_of_now()
{
    const auto now = std::chrono::system_clock::now().time_since_epoch();
    return static_cast<int>(std::chrono::duration_cast<std::chrono::milliseconds>(now).count() % 1000);
}

// In one piece, so that lines of several processes do not mix.
void append_to_log(const Text& file, const std::string& line)
{
    const int log = open(to_utf8(file).c_str(), O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC, 0600);
    if (log < 0) return;
    [[maybe_unused]] const ssize_t written = write(log, line.data(), line.size());
    close(log);
}

} // namespace tolvex
