#include "database/driver.hpp"

namespace tolvex {

namespace {

// Value of one keyword of a connection string; the last one wins, as drivers take it.
Text keyword(const Text& connection_string, TextView name)
{
    Text value;
    for (const Text& part : split(connection_string, u';')) {
        const auto equals = part.find(u'=');
        if (equals != Text::npos && equal_ignoring_case(trim(part.substr(0, equals)), name))
            value = trim(part.substr(equals + 1));
    }
    return value;
}

} // namespace

std::unique_ptr<Driver> open_driver(const Text& connection_string, int timeout_seconds)
{
    if (equal_ignoring_case(keyword(connection_string, u"server"), u"sqlite:"))
        return open_embedded(keyword(connection_string, u"database"), timeout_seconds);
    return open_odbc(connection_string, timeout_seconds);
}

} // namespace tolvex
