#include "console/csv.hpp"

namespace tolvex::console {

namespace {

std::string field(const std::string& value)
{
    if (value.find_first_of(",\"\r\n") == std::string::npos) return value;
    std::string quoted = "\"";
    for (const char c : value) quoted += c == '"' ? "\"\"" : std::string(1, c);
    return quoted + '"';
}

} // namespace

std::string csv_record(const std::vector<std::string>& fields)
{
    std::string record;
    for (std::size_t i = 0; i < fields.size(); ++i) record += (i > 0 ? "," : "") + field(fields[i]);
    return record + "\r\n";
}

} // namespace tolvex::console
