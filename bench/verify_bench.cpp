// What verifying costs, by stored documents: an issued document of three lines, its rows and its file copied
// under as many folios, all of them right. Each size runs in a process of its own, so that its peak memory is
// its own.
#include "bench/measuring.hpp"
#include "core/dates.hpp"
#include "core/numbers.hpp"
#include "core/text.hpp"
#include "session/session.hpp"
#include "tolvex/tolvex.hpp"

#include <algorithm>
#include <filesystem>

namespace {

using namespace tolvex;
using namespace tolvex::bench;
namespace fs = std::filesystem;

const fs::path folder = BENCH_FOLDER;

Connection& open_database()
{
    ConfigFE connection;
    connection.SetDatosConexion(u"", u"", to_text((folder / "tolvex.db").string()), u"sqlite:");
    connection.AbrirConexion();
    return shared_connection(session());
}

// Columns of a table but for its key, as they stand in a list.
Text columns_of(Connection& connection, const Text& table, TextView key)
{
    std::vector<Text> names;
    const Recordset row = connection.query(u"Select * From " + table + u" Where 1=0");
    for (const Column& column : row.columns())
        if (!equal_ignoring_case(column.name, key)) names.push_back(column.name);
    return join(names, u",");
}

// Documents up to that number from those there are, twice as many at a time.
void multiply(Connection& connection, const Text& table, const Text& key, int documents)
{
    const Text columns = columns_of(connection, table, key);
    for (int there = 1; there < documents; there *= 2)
        connection.execute(u"Insert Into " + table + u"(" + key + u"," + columns + u") Select " + key + u"+" +
                           decimal(there) + u"," + columns + u" From " + table + u" Where " + key + u"<=" +
                           decimal(std::min(there, documents - there)));
}

// The first document under the folios 01, 02 and so on, whose numbers name their files.
void prepare(int documents)
{
    fs::remove_all(folder);
    run(TOLVEX_COMMAND " demo --carpeta " BENCH_FOLDER " > /dev/null");
    Connection& connection = open_database();
    for (const auto& [table, key] : {std::pair{u"FE_VENTAS_RESUMEN", u"nID"},
                                     {u"FE_ClienteFactura", u"nidFE"},
                                     {u"FE_VENTAS_RESUMEN_DET", u"nIdFe"}}) {
        connection.execute(Text(u"Delete ") + table + u" Where " + key + u">1");
        multiply(connection, table, key, documents);
    }
    connection.execute(u"Update FE_VENTAS_RESUMEN Set cDocumento='0'+convert(varchar(10),nID),nFolioFE=nID");
    connection.execute(u"Update FE_ClienteFactura Set nFolioDocto='0'+convert(varchar(10),nidFE)");
    connection.execute(u"Update FE_FOLIOS Set nUltimoFolio=0");
    const fs::path issued = folder / "documento.xml";
    fs::rename(folder / "Facturas/A1.xml", issued);
    for (int i = 1; i <= documents; ++i)
        fs::copy_file(issued, folder / fmt::format("Facturas/A{}.xml", i),
                      fs::copy_options::overwrite_existing);
}

void measure(int documents)
{
    open_database();
    VerificationSummary summary;
    const double taken = milliseconds([&] { summary = verify_documents({}, {}); });
    check(summary.documents == static_cast<std::size_t>(documents) && summary.findings == 0, "verification");
    row(fmt::format("document verified, of {}", documents), taken / documents, peak_mebibytes());
}

// The monthly report of all of them, by the command.
void measure_report(int documents)
{
    const CalendarDate month = calendar(
        open_database().query(u"Select dFecha From FE_VENTAS_RESUMEN Where nID=1")[u"dFecha"].date());
    const std::string order =
        fmt::format(TOLVEX_COMMAND " reporte --empresa 1 --mes {} --anio {} --carpeta " BENCH_FOLDER
                                   " --bd " BENCH_FOLDER "/tolvex.db > /dev/null 2>&1",
                    month.month, month.year);
    const double taken = milliseconds([&] { run(order); });
    row(fmt::format("row of the monthly report, of {}", documents), taken / documents);
}

} // namespace

int main(int argc, char** argv)
{
    const std::string step = argc == 3 ? argv[1] : "";
    if (step == "prepare")
        prepare(std::atoi(argv[2]));
    else if (step == "measure")
        measure(std::atoi(argv[2]));
    if (!step.empty()) return 0;
    for (const int documents : {1'000, 10'000, 100'000})
        for (const char* each : {"prepare", "measure"})
            run(fmt::format("{} {} {}", argv[0], each, documents));
    measure_report(100'000);
}
