// What issuing costs, by lines per document: the whole issue beside the bare two openssl runs of its seal,
// taken in turns in one process, on an embedded database on disk with a 2048-bit key. Each size runs in a
// process of its own, so that its peak memory is its own.
#include "issuing/issue.hpp"
#include "issuing/master_data.hpp"
#include "platform/batch_runner.hpp"
#include "platform/files.hpp"
#include "tolvex/tolvex.hpp"

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fmt/core.h>
#include <sys/resource.h>
#include <vector>

namespace {

using namespace tolvex;

template <class Operation>
double milliseconds(Operation operation)
{
    const auto start = std::chrono::steady_clock::now();
    operation();
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
}

double median(std::vector<double> times)
{
    std::nth_element(times.begin(), times.begin() + times.size() / 2, times.end());
    return times[times.size() / 2];
}

double peak_mebibytes()
{
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss / 1024.0;
}

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

void check(bool succeeded, const char* step)
{
    if (succeeded) return;
    fmt::print(stderr, "{}: {}\n", step, to_utf8(last_error()));
    std::exit(1);
}

// The issue removes its work files; the bare runs sign a copy of the same size in a folder of their own.
Text prepare_bare_runs(const Text& folder)
{
    const Text bare = folder + u"\\solo_openssl";
    std::filesystem::create_directories(to_utf8(files::native_path(bare)));
    files::write(bare + u"\\pkey.key.pem", files::read(folder + u"\\pkey.key.pem"));
    return bare;
}

void measure(int lines, int rounds)
{
    const Text folder = to_text(BENCH_FOLDER);
    const Text bare = prepare_bare_runs(folder);
    ConfigFE connection;
    connection.SetDatosConexion(u"", u"", folder + u"/tolvex.db", u"sqlite:");
    connection.AbrirConexion();
    GeneraDocto documents;
    check(documents.GetDatosEmpresa(1) && documents.GetDatosSucursal(1, 1) &&
              documents.GetDatosCertificado(1),
          "issuer");

    std::vector<double> whole, openssl, staging;
    for (int round = 0; round < rounds; ++round) {
        staging.push_back(milliseconds([&] { stage(lines, folder); }));
        whole.push_back(milliseconds([&] {
            Text folio;
            check(documents.GeneraFacturaElectronica(folio, true), "issue");
        }));
        if (round == 0) {
            const std::string batch = "openssl dgst -sha1 -sign " + to_utf8(bare) + "\\pkey.key.pem -out " +
                                      to_utf8(bare) + "\\fi_md5.txt " + to_utf8(bare) + "\\utf8.txt\r\n" +
                                      "openssl enc -base64 -in " + to_utf8(bare) + "\\fi_md5.txt -out " +
                                      to_utf8(bare) + "\\sello.txt\r\n";
            files::write(bare + u"\\sello.bat", batch);
            files::write(bare + u"\\utf8.txt", std::string(static_cast<std::size_t>(lines) * 70 + 400, 'x'));
        }
        openssl.push_back(milliseconds([&] { run_batch_file(bare + u"\\sello.bat"); }));
    }
    const double issue = median(whole), bare_cost = median(openssl);
    fmt::print("{:>7} {:>9.1f} {:>12.2f} {:>12.2f} {:>8.2f} {:>14.2f} {:>12.2f} {:>9.1f}\n", lines,
               1000 / issue, issue, bare_cost, issue / bare_cost, (issue - bare_cost) * 1000 / lines,
               median(staging), peak_mebibytes());
}

void measure_all(const char* program)
{
    std::filesystem::remove_all(BENCH_FOLDER);
    check(std::system(
              (std::string(TOLVEX_COMMAND) + " demo --carpeta " BENCH_FOLDER " > /dev/null").c_str()) == 0,
          "tolvex demo");
    fmt::print("{:>7} {:>9} {:>12} {:>12} {:>8} {:>14} {:>12} {:>9}\n", "lines", "doc/s", "issue ms",
               "openssl ms", "ratio", "rest us/line", "staging ms", "peak MiB");
    std::fflush(stdout);
    for (const auto& [lines, rounds] : {std::pair{10, 200}, {100, 100}, {1'000, 30}, {10'000, 7}})
        check(std::system(fmt::format("{} {} {}", program, lines, rounds).c_str()) == 0, "measure");
}

} // namespace

int main(int argc, char** argv)
{
    if (argc == 4) set_sealing(Sealing::in_process);
    if (argc >= 3)
        measure(std::atoi(argv[1]), std::atoi(argv[2]));
    else
        measure_all(argv[0]);
}
