// Two stations that issue on one database from one folio range at the same time. Folios and identifiers are
// taken without a lock, so collisions are possible; this counts them and shows that nothing else breaks.
//
//   two_stations [DOCUMENTS]     on an embedded database of its own, or on the SQL Server of TOLVEX_SERVIDOR,
//                                TOLVEX_BD, TOLVEX_USUARIO and TOLVEX_CLAVE (whose company 1 must be the
//                                demonstration's)
#include "issuing/master_data.hpp"
#include "platform/files.hpp"
#include "tolvex/tolvex.hpp"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fmt/core.h>
#include <string>
#include <sys/wait.h>
#include <unistd.h>

namespace {

using namespace tolvex;
namespace fs = std::filesystem;

const std::string folder = BENCH_FOLDER;

Text setting(const char* name, const std::string& otherwise)
{
    const char* value = std::getenv(name);
    return to_text(value ? value : otherwise);
}

void connect()
{
    ConfigFE connection;
    connection.SetDatosConexion(setting("TOLVEX_USUARIO", ""), setting("TOLVEX_CLAVE", ""),
                                setting("TOLVEX_BD", folder + "/tolvex.db"),
                                setting("TOLVEX_SERVIDOR", "sqlite:"));
    connection.AbrirConexion();
}

std::int32_t count(const Text& sql) { return shared_connection(session()).query(sql)[u"n"].int32(); }

// Issues its documents and tells how many failed; each failure's description goes to standard error.
int run_station(const std::string& name, int documents)
{
    const fs::path own_folder = fs::path(folder) / name;
    fs::create_directories(own_folder);
    fs::copy_file(fs::path(folder) / "pkey.key.pem", own_folder / "pkey.key.pem",
                  fs::copy_options::overwrite_existing);
    connect();
    GeneraDocto issuer;
    issuer.GetDatosEmpresa(1);
    issuer.GetDatosSucursal(1, 1);
    issuer.GetDatosCertificado(1);
    int failures = 0;
    for (int i = 0; i < documents; ++i) {
        Cliente().SetDatosClientes(u"PEGM800101AB1", to_text(name), u"Avenida Niños Héroes", u"120", u"",
                                   u"Del Valle", u"", u"Distrito Federal", u"Benito Juárez", u"México",
                                   u"03100", u"100.00", u"0.00", u"16.00", u"116.00", 1, u"1",
                                   Date::of(2011, 3, 15, 14, 5, 9), to_text(own_folder.string()));
        DetFacturas lines;
        lines.InicializaDetalleFactura();
        for (int line = 0; line < 3; ++line)
            lines.SetDetalleDocto(u"1", u"F", u"CAF-01", to_text(name), 1, u"KG", 33.33, 5.33, 33.33, 16);
        Text folio;
        if (issuer.GeneraFacturaElectronica(folio, true)) continue;
        ++failures;
        fmt::print(stderr, "{}: {}\n", name, to_utf8(last_error()));
    }
    return failures;
}

pid_t start_station(const std::string& name, int documents)
{
    const pid_t process = fork();
    if (process == 0) _exit(std::min(run_station(name, documents), 255));
    return process;
}

int failures_of(pid_t station)
{
    int status = 0;
    waitpid(station, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : 255;
}

} // namespace

int main(int argc, char** argv)
{
    const int documents = argc > 1 ? std::atoi(argv[1]) : 50;
    fs::remove_all(folder);
    if (std::system((std::string(TOLVEX_COMMAND) + " demo --carpeta " + folder + " > /dev/null").c_str()) !=
        0)
        return 1;
    connect();
    const std::int32_t before = count(u"Select isnull(max(nID),0) as n From FE_VENTAS_RESUMEN(nolock)");
    ConfigFE().CierraConexion(); // no connection crosses a fork

    const pid_t first = start_station("estacion1", documents), second = start_station("estacion2", documents);
    const int failures = failures_of(first) + failures_of(second);

    connect();
    const Text ours = u" nID > " + to_text(std::to_string(before));
    const std::int32_t rows = count(u"Select count(*) as n From FE_VENTAS_RESUMEN(nolock) Where" + ours);
    const std::int32_t folios =
        count(u"Select count(distinct cDocumento) as n From FE_VENTAS_RESUMEN(nolock) Where" + ours);
    const std::int32_t without_lines =
        count(u"Select count(*) as n From FE_VENTAS_RESUMEN(nolock) Where" + ours +
              u" And nID not in (Select nIdFe From FE_VENTAS_RESUMEN_DET(nolock))");
    fmt::print("{} documents asked for by two stations on one range\n"
               "  issued: {}, failed: {}\n"
               "  stored rows: {}, different folios: {} (folios handed out twice: {})\n"
               "  rows whose lines went to the other station's identifier: {}\n",
               2 * documents, 2 * documents - failures, failures, rows, folios, rows - folios, without_lines);
}
