#include "database/connection_keywords.hpp"
#include "database/driver.hpp"

namespace tolvex {

std::unique_ptr<Driver> open_driver(const Text& connection_string, int timeout_seconds)
{
    if (asks_for_embedded(connection_string))
        return open_embedded(keyword(connection_string, u"database"), timeout_seconds);
    return open_odbc(connection_string, timeout_seconds);
}

} // namespace tolvex
