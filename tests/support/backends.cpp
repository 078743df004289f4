#include "support/backends.hpp"

#include "support/sql_server.hpp"
#include "support/temporary_folder.hpp"

#include <clocale>
#include <cstdlib>

namespace tolvex {

namespace {

Backend embedded_backend()
{
    static const TemporaryFolder folder;
    return {"embedded", u"server=sqlite:;database=" + folder.file("contrato.db")};
}

// Debian's ODBC driver for SQLite, by the name of its library: it need not be registered. It takes narrow
// text only, which the driver manager converts by the locale of the process.
Backend sqlite_odbc_backend()
{
    static const TemporaryFolder folder;
    std::setlocale(LC_CTYPE, "C.UTF-8");
    return {"odbcSqlite", u"driver=libsqlite3odbc.so;database=" + folder.file("contrato.db")};
}

std::vector<Backend> all_backends()
{
    std::vector<Backend> all = {embedded_backend(), sqlite_odbc_backend()};
    if (const char* named = std::getenv("TOLVEX_PRUEBA_ODBC")) all.push_back({"odbcNamed", to_text(named)});
    if (!testing::sql_server().empty()) all.push_back({"sqlServer", testing::sql_server()});
    return all;
}

} // namespace

const std::vector<Backend>& backends()
{
    static const std::vector<Backend> all = all_backends();
    return all;
}

} // namespace tolvex
