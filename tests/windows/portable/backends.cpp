// The databases of the Windows edition: the embedded one, and what odbc32 reaches. In the test bed odbc32
// hands over to the host's driver manager, whose drivers take Unix paths.
#include "support/backends.hpp"

#include "core/text.hpp"

#include <cstdlib>
#include <filesystem>

namespace tolvex {

namespace {

Text fresh_file(const std::filesystem::path& path)
{
    for (const char* ending : {"", "-wal", "-shm", "-journal"})
        std::filesystem::remove(std::filesystem::path(path) += ending);
    return std::filesystem::absolute(path).u16string();
}

// Z:\folder\file is /folder/file there.
Text unix_path(const Text& path) { return replace_all(path.substr(2), u"\\", u"/"); }

std::vector<Backend> all_backends()
{
    std::vector<Backend> all = {
        {"embedded", u"server=sqlite:;database=" + fresh_file("contrato.db")},
        {"odbc32Sqlite", u"driver={SQLite3};database=" + unix_path(fresh_file("contrato_odbc.db"))}};
    if (const char* named = std::getenv("TOLVEX_PRUEBA_SQLSERVER"))
        all.push_back({"sqlServer", to_text(named)});
    return all;
}

} // namespace

const std::vector<Backend>& backends()
{
    static const std::vector<Backend> all = all_backends();
    return all;
}

} // namespace tolvex
