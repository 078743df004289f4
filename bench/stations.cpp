// Stations that issue at the same time on one database, from one folio range and in one working folder: how
// many documents they get done, and whether any of them took another's folio, lines or seal.
//
//   stations [STATIONS [SECONDS]]    on an embedded database of its own, or on the SQL Server of
//                                    TOLVEX_SERVIDOR, TOLVEX_BD, TOLVEX_USUARIO and TOLVEX_CLAVE (whose
//                                    company 1 must be the demonstration's)
#include "bench/measuring.hpp"
#include "core/code_pages.hpp"
#include "core/numbers.hpp"
#include "issuing/master_data.hpp"
#include "platform/batch_runner.hpp"
#include "platform/files.hpp"
#include "tolvex/tolvex.hpp"

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fmt/core.h>
#include <string>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace {

using namespace tolvex;
using Clock = std::chrono::steady_clock;
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

Recordset query(const Text& sql) { return shared_connection(session()).query(sql); }

// The customer and the product of its sales have the station's name.
void stage_sale(const Text& name)
{
    Cliente().SetDatosClientes(u"PEGM800101AB1", name, u"Avenida Niños Héroes", u"120", u"", u"Del Valle",
                               u"", u"Distrito Federal", u"Benito Juárez", u"México", u"03100", u"100.00",
                               u"0.00", u"16.00", u"116.00", 1, u"1", Date::of(2011, 3, 15, 14, 5, 9),
                               to_text(folder));
    DetFacturas lines;
    lines.InicializaDetalleFactura();
    for (int line = 0; line < 3; ++line)
        lines.SetDetalleDocto(u"1", u"F", u"CAF-01", name, 1, u"KG", 33.33, 5.33, 33.33, 16);
}

// Issues until the time is over and tells how many failed; what failed, or went without a turn, goes to
// standard error.
int run_station(const Text& name, Clock::time_point end)
{
    connect();
    GeneraDocto issuer;
    issuer.GetDatosEmpresa(1);
    issuer.GetDatosSucursal(1, 1);
    issuer.GetDatosCertificado(1);
    int failures = 0;
    while (Clock::now() < end) {
        stage_sale(name);
        Text folio;
        failures += !issuer.GeneraFacturaElectronica(folio, true);
        if (!last_error().empty()) fmt::print(stderr, "{}: {}\n", to_utf8(name), to_utf8(last_error()));
    }
    return failures;
}

pid_t start_station(int number, Clock::time_point end)
{
    const pid_t process = fork();
    if (process == 0) _exit(std::min(run_station(u"Estación " + decimal(number), end), 255));
    return process;
}

int failures_of(pid_t station)
{
    int status = 0;
    waitpid(station, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : 255;
}

bool seal_is_right(const Text& seal, const Text& original)
{
    const Text base = to_text(folder);
    files::write(base + u"\\cadena.tmp", bytes_of_text(original));
    files::write(base + u"\\sello.b64", bytes_of_text(seal));
    files::write(base + u"\\revisa.bat",
                 to_utf8(u"openssl base64 -d -A -in " + base + u"\\sello.b64 -out " + base +
                         u"\\firma.tmp\r\nopenssl dgst -sha1 -verify " + base + u"\\publica.tmp -signature " +
                         base + u"\\firma.tmp " + base + u"\\cadena.tmp > " + base + u"\\resultado.tmp\r\n"));
    return run_batch_file(base + u"\\revisa.bat") == 0;
}

void write_public_key()
{
    const Text base = to_text(folder);
    files::write(base + u"\\revisa.bat",
                 to_utf8(u"openssl x509 -inform DER -in " + base + u"\\certificado.cer -pubkey -noout > " +
                         base + u"\\publica.tmp\r\n"));
    run_batch_file(base + u"\\revisa.bat");
}

struct Findings
{
    int documents = 0, other_lines = 0, wrong_seals = 0;
};

Findings look_over(const Text& ours)
{
    write_public_key();
    Findings found;
    std::vector<std::pair<Text, Text>> seals;
    for (Recordset row =
             query(u"Select cSelloDigital, cCadenaOriginal From FE_VENTAS_RESUMEN(nolock) Where" + ours);
         !row.eof(); row.move_next())
        seals.emplace_back(row[u"cSelloDigital"].text(), row[u"cCadenaOriginal"].text());
    for (const auto& [seal, original] : seals) found.wrong_seals += !seal_is_right(seal, original);
    found.documents = static_cast<int>(seals.size());
    found.other_lines =
        found.documents -
        query(
            u"Select count(*) as n From (Select nID From FE_VENTAS_RESUMEN r Inner Join FE_ClienteFactura c On "
            u"c.nidFE=r.nID Inner Join FE_VENTAS_RESUMEN_DET d On d.nIdFe=r.nID And d.cProducto=c.cNombreCte "
            u"Where" +
            ours + u" Group By nID Having count(*)=3) t")[u"n"]
            .int32();
    return found;
}

} // namespace

int main(int argc, char** argv)
{
    const int stations = argc > 1 ? std::atoi(argv[1]) : 10;
    const int seconds = argc > 2 ? std::atoi(argv[2]) : 10;
    fs::remove_all(folder);
    if (std::system((std::string(TOLVEX_COMMAND) + " demo --carpeta " + folder + " > /dev/null").c_str()) !=
        0)
        return 1;
    connect();
    const std::int32_t before =
        query(u"Select isnull(max(nID),0) as n From FE_VENTAS_RESUMEN(nolock)")[u"n"].int32();
    ConfigFE().CierraConexion(); // no connection crosses a fork

    const Clock::time_point end = Clock::now() + std::chrono::seconds(seconds);
    std::vector<pid_t> running;
    for (int number = 1; number <= stations; ++number) running.push_back(start_station(number, end));
    int failures = 0;
    for (const pid_t station : running) failures += failures_of(station);

    connect();
    const Text ours = u" nID > " + decimal(before);
    const Findings found = look_over(ours);
    const std::int32_t folios =
        query(u"Select count(distinct cDocumento) as n From FE_VENTAS_RESUMEN(nolock) Where" + ours)[u"n"]
            .int32();
    bench::row(fmt::format("issue by {} stations, one range and folder", stations),
               1000.0 * seconds / found.documents, 0,
               fmt::format("{} failed, {} folios twice, {} with another's lines, {} wrong seals", failures,
                           found.documents - folios, found.other_lines, found.wrong_seals));
}
