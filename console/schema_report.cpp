#include "console/schema_report.hpp"

#include "schema/check.hpp"

#include <fmt/core.h>

namespace tolvex::console {

bool report_schema(Connection& connection)
{
    const std::vector<Text> findings = schema_findings(connection);
    if (findings.empty()) {
        fmt::print("Esquema: completo\n");
        return true;
    }
    fmt::print("Esquema: hay que atender lo siguiente\n");
    for (const Text& finding : findings) fmt::print("  {}\n", to_utf8(finding));
    return false;
}

} // namespace tolvex::console
