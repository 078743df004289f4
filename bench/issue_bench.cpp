// What issuing costs, by lines per document and by both ways of sealing: the whole issue beside the bare two
// openssl runs, taken in turns in one process, on an embedded database on disk with a 2048-bit key. Each size
// runs in a process of its own, so that its peak memory is its own.
#include "bench/measuring.hpp"
#include "issuing/issue.hpp"
#include "issuing/master_data.hpp"
#include "platform/batch_runner.hpp"
#include "platform/files.hpp"
#include "tolvex/tolvex.hpp"

#include <filesystem>

namespace {

using namespace tolvex;
using namespace tolvex::bench;

void stage(int lines, const Text& folder)
{
    Cliente().SetDatosClientes(u"PEGM800101AB1", u"María Peña Güemes", u"Avenida Niños Héroes", u"120", u"",
                               u"Del Valle", u"", u"Distrito Federal", u"Benito Juárez", u"México", u"03100",
                               u"1000.00", u"0.00", u"160.00", u"1160.00", 1, u"1",
                               Date::of(2011, 3, 15, 14, 5, 9), folder);
    DetFacturas detail;
    detail.InicializaDetalleFactura();
    for (int i = 0; i < lines; ++i)
        detail.SetDetalleDocto(u"1", u"F", u"CAF-01", u"Café de altura tostado y molido, bolsa de 1 kg", 5,
                               u"KG", 180.0, 144.0, 900.0, 16);
}

// The issue removes its work files; the bare runs sign a copy of the same size in a folder of their own.
Text prepare_bare_runs(const Text& folder, int lines)
{
    const Text bare = folder + u"\\solo_openssl";
    std::filesystem::create_directories(to_utf8(files::native_path(bare)));
    files::write(bare + u"\\pkey.key.pem", files::read(folder + u"\\pkey.key.pem"));
    const std::string base = to_utf8(bare);
    files::write(bare + u"\\sello.bat", "openssl dgst -sha1 -sign " + base + "\\pkey.key.pem -out " + base +
                                            "\\fi_md5.txt " + base +
                                            "\\utf8.txt\r\nopenssl enc -base64 -in " + base +
                                            "\\fi_md5.txt -out " + base + "\\sello.txt\r\n");
    files::write(bare + u"\\utf8.txt", std::string(static_cast<std::size_t>(lines) * 70 + 400, 'x'));
    return bare;
}

struct Times
{
    std::vector<double> issue, bare;
};

Times times_of(int lines, int rounds)
{
    const Text folder = to_text(BENCH_FOLDER);
    const Text bare = prepare_bare_runs(folder, lines);
    ConfigFE connection;
    connection.SetDatosConexion(u"", u"", folder + u"/tolvex.db", u"sqlite:");
    connection.AbrirConexion();
    GeneraDocto documents;
    check(documents.GetDatosEmpresa(1) && documents.GetDatosSucursal(1, 1) &&
              documents.GetDatosCertificado(1),
          "issuer");
    Times times;
    for (int round = 0; round < rounds; ++round) {
        stage(lines, folder);
        times.issue.push_back(milliseconds([&] {
            Text folio;
            check(documents.GeneraFacturaElectronica(folio, true), to_utf8(last_error()));
        }));
        times.bare.push_back(milliseconds([&] { run_batch_file(bare + u"\\sello.bat"); }));
    }
    return times;
}

void measure(int lines, int rounds, Sealing sealing)
{
    set_sealing(sealing);
    const Times times = times_of(lines, rounds);
    const double issue = median(times.issue), bare = median(times.bare);
    const bool by_program = sealing == Sealing::openssl_program;
    if (by_program) row(fmt::format("two bare openssl runs, {} lines", lines), bare);
    row(fmt::format("issue, {} lines, {}", lines, by_program ? "openssl" : "in process"), issue,
        peak_mebibytes(), fmt::format("{:.2f} of the bare runs' rate", bare / issue));
}

void measure_all(const char* program)
{
    std::filesystem::remove_all(BENCH_FOLDER);
    run(TOLVEX_COMMAND " demo --carpeta " BENCH_FOLDER " > /dev/null");
    for (const auto& [lines, rounds] : {std::pair{10, 200}, {100, 100}, {1'000, 30}, {10'000, 7}})
        for (const char* sealing : {"openssl", "process"})
            run(fmt::format("{} {} {} {}", program, lines, rounds, sealing));
}

} // namespace

int main(int argc, char** argv)
{
    if (argc == 4)
        measure(std::atoi(argv[1]), std::atoi(argv[2]),
                argv[3] == std::string("openssl") ? Sealing::openssl_program : Sealing::in_process);
    else
        measure_all(argv[0]);
}
