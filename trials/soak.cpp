// A process that works for long: documents, certificates, PDF files and forms by the thousand, and what of
// memory and descriptors it holds after each tenth. Both have to stay where they were once everything had
// been used.
//
//   soak FOLDER [PERCENT]    in the FOLDER of a demonstration; PERCENT of the full counts
#include "core/numbers.hpp"
#include "platform/files.hpp"
#include "platform/in_memory/forms_in_memory.hpp"
#include "printing/default_layout.hpp"
#include "tolvex/tolvex.hpp"

#include <cstdlib>
#include <filesystem>
#include <fmt/core.h>
#include <fstream>
#include <functional>
#include <unistd.h>

namespace {

using namespace tolvex;

double resident_mebibytes()
{
    long whole = 0, resident = 0;
    std::ifstream("/proc/self/statm") >> whole >> resident;
    return static_cast<double>(resident) * static_cast<double>(sysconf(_SC_PAGESIZE)) / 1048576;
}

long open_descriptors()
{
    const std::filesystem::directory_iterator all("/proc/self/fd");
    return std::distance(begin(all), end(all)) - 1; // without that of the folder itself
}

void require(bool done, const Text& what)
{
    if (!done) throw Error(0, what + u": " + last_error());
}

// What is kept once (a prepared statement, a font) is there after three tenths; from then on nothing may be
// added but what an allocator keeps for itself.
bool stays_flat(const std::string& what, int count, const std::function<void(int)>& operation)
{
    constexpr double most_growth = 1.5;
    double settled = 0;
    long descriptors = 0;
    fmt::print("{:<14} {:>8} {:>9} {:>12}\n", what, "done", "MiB", "descriptors");
    for (int tenth = 1, done = 0; tenth <= 10; ++tenth) {
        for (const int until = static_cast<int>(std::int64_t{count} * tenth / 10); done < until; ++done)
            operation(done);
        fmt::print("{:<14} {:>8} {:>9.2f} {:>12}\n", "", done, resident_mebibytes(), open_descriptors());
        std::fflush(stdout);
        if (tenth == 3) settled = resident_mebibytes(), descriptors = open_descriptors();
    }
    const double growth = resident_mebibytes() - settled;
    const bool flat = growth <= most_growth && open_descriptors() == descriptors;
    fmt::print("{:<14} {}: {:+.2f} MiB, {:+} descriptors\n\n", what, flat ? "flat" : "GROWS", growth,
               open_descriptors() - descriptors);
    return flat;
}

class Shop
{
public:
    explicit Shop(const Text& folder) : folder_(folder), database_(folder + u"/tolvex.db")
    {
        ConfigFE connection;
        connection.SetDatosConexion(u"", u"", database_, u"sqlite:");
        connection.AbrirConexion();
        files::write(folder_ + u"\\factura.rdl", layouts::factura);
        require(documents_.GetDatosEmpresa(1) && documents_.GetDatosSucursal(1, 1), u"emisor");
        load_certificate();
    }

    void issue(int number)
    {
        Cliente().SetDatosClientes(u"PEGM800101AB1", u"María Peña Güemes", u"Niños Héroes", u"120", u"",
                                   u"Del Valle", u"", u"Distrito Federal", u"Benito Juárez", u"México",
                                   u"03100", u"300.00", u"0.00", u"48.00", u"348.00", 1, u"1",
                                   Date::of(2011, 3, 15, 14, 5, 9), folder_);
        DetFacturas lines;
        lines.InicializaDetalleFactura();
        for (int line = 0; line < 3; ++line)
            lines.SetDetalleDocto(u"1", u"F", u"CAF-01", u"Café de altura, 1 kg", 1, u"KG", 100, 16, 100, 16);
        Text folio = u"0" + decimal(100'000 + number); // one name each
        require(documents_.GeneraFacturaElectronica(folio), u"factura");
    }

    void load_certificate() { require(documents_.GetDatosCertificado(1), u"certificado"); }

    void export_pdf() { documents_.ImprimeDocuento(u"2", 1, 1, false, folder_ + u"\\factura.rdl", true); }

    // The list, and the form of a new record, which its user closes at once.
    void open_forms(ToolkitInMemory& toolkit)
    {
        Maestros().MuestraEmpresas(u"", u"", database_, u"sqlite:");
        toolkit.open_form(u"FrmMuestraEmpresas").click(u"Nuevo");
    }

private:
    const Text folder_, database_;
    GeneraDocto documents_;
};

} // namespace

int main(int argc, char** argv)
try {
    const int percent = argc > 2 ? std::atoi(argv[2]) : 100;
    Shop shop(to_text(argc > 1 ? argv[1] : "."));
    ToolkitInMemory toolkit;
    use_toolkit(&toolkit);
    bool flat = stays_flat("certificates", 100 * percent, [&](int) { shop.load_certificate(); });
    flat &= stays_flat("PDF files", 10 * percent, [&](int) { shop.export_pdf(); });
    flat &= stays_flat("forms", 10 * percent, [&](int) { shop.open_forms(toolkit); });
    flat &= stays_flat("documents", 200 * percent, [&](int number) { shop.issue(number); });
    use_toolkit(nullptr);
    return flat ? 0 : 1;
} catch (const std::exception& error) {
    fmt::print(stderr, "{}\n", error.what());
    return 2;
}
