// What a document costs in a full archive: issues on a database and in a Facturas folder with 100 documents,
// and on ones with 200,000, taken in turns in one process.
#include "bench/measuring.hpp"
#include "issuing/master_data.hpp"
#include "tolvex/tolvex.hpp"

#include <filesystem>
#include <fstream>
#include <sqlite3.h>

namespace {

using namespace tolvex;
using namespace tolvex::bench;
namespace fs = std::filesystem;

constexpr int rounds = 100;

// A folder with the demonstration's company and as many documents as asked for, rows and files.
class Archive
{
public:
    Archive(const std::string& name, int documents) : folder_(std::string(BENCH_FOLDER) + "/" + name)
    {
        fs::create_directories(BENCH_FOLDER);
        run(std::string(TOLVEX_COMMAND) + " demo --carpeta " + folder_ + " > /dev/null");
        fill_database(documents);
        for (int i = 0; i < documents; ++i) std::ofstream(folder_ + fmt::format("/Facturas/B{}.xml", i));
    }

    // Milliseconds of one issue.
    double issue()
    {
        ConfigFE().SetDatosConexion(u"", u"", to_text(folder_ + "/tolvex.db"), u"sqlite:");
        ConfigFE().AbrirConexion();
        GeneraDocto issuer;
        issuer.GetDatosEmpresa(1);
        issuer.GetDatosSucursal(1, 1);
        issuer.GetDatosCertificado(1);
        Cliente().SetDatosClientes(u"PEGM800101AB1", u"María Peña", u"", u"", u"", u"", u"", u"", u"", u"",
                                   u"", u"100.00", u"0", u"16.00", u"116.00", 1, u"1",
                                   Date::of(2011, 3, 15, 14, 5, 9), to_text(folder_));
        DetFacturas lines;
        lines.InicializaDetalleFactura();
        for (int line = 0; line < 10; ++line)
            lines.SetDetalleDocto(u"1", u"F", u"CAF-01", u"Café", 1, u"KG", 10, 1.6, 10, 16);
        Text folio;
        const double taken =
            milliseconds([&] { check(issuer.GeneraFacturaElectronica(folio, true), to_utf8(last_error())); });
        ConfigFE().CierraConexion();
        return taken;
    }

private:
    // Copies of the first document.
    void fill_database(int documents)
    {
        const std::string sql = fmt::format(
            "PRAGMA synchronous=OFF; BEGIN;"
            "CREATE TEMP TABLE a AS SELECT * FROM FE_VENTAS_RESUMEN WHERE nID=1;"
            "CREATE TEMP TABLE b AS SELECT * FROM FE_ClienteFactura WHERE nidFE=1;"
            "CREATE TEMP TABLE c AS SELECT * FROM FE_VENTAS_RESUMEN_DET WHERE nIdFe=1;"
            "CREATE TEMP TABLE n AS WITH RECURSIVE n(i) AS (SELECT 1001 UNION ALL SELECT i+1 FROM n WHERE i<{}) "
            "SELECT i FROM n;"
            "UPDATE a SET nID=NULL;"
            "INSERT INTO FE_VENTAS_RESUMEN SELECT a.* FROM a, n;"
            "INSERT INTO FE_ClienteFactura SELECT b.* FROM b, n;"
            "INSERT INTO FE_VENTAS_RESUMEN_DET SELECT c.* FROM c, n;"
            "COMMIT;",
            1000 + documents);
        sqlite3* database = nullptr;
        char* error = nullptr;
        if (sqlite3_open((folder_ + "/tolvex.db").c_str(), &database) != SQLITE_OK ||
            sqlite3_exec(database, sql.c_str(), nullptr, nullptr, &error) != SQLITE_OK) {
            fmt::print(stderr, "{}\n", error ? error : sqlite3_errmsg(database));
            std::exit(1);
        }
        sqlite3_close(database);
    }

    const std::string folder_;
};

} // namespace

int main()
{
    fs::remove_all(BENCH_FOLDER);
    Archive few("pocos", 100), many("muchos", 200'000);
    std::vector<double> of_few, of_many;
    for (int round = 0; round < rounds; ++round) {
        of_few.push_back(few.issue());
        of_many.push_back(many.issue());
    }
    row("issue beside 100 documents", median(of_few));
    row("issue beside 200000 documents", median(of_many), 0,
        fmt::format("{:.2f} times as long", median(of_many) / median(of_few)));
}
