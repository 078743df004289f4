// A point of sale that issues one invoice with TOLVEX.
//
//   tolvex demo --carpeta prueba      makes the folder: database, key and certificate
//   ejemplo_nativo prueba             issues an invoice there
//
// The folder's path must be absolute or relative to where the program runs, and without blanks.
#include <tolvex/tolvex.hpp>

#include <cstdio>
#include <iostream>
#include <vector>

namespace {

// A sale as this program keeps it.
struct Line
{
    tolvex::Text code, description, unit;
    double quantity, price;
};

struct Sale
{
    tolvex::Text customer_rfc, customer_name;
    std::vector<Line> lines;

    double subtotal() const
    {
        double sum = 0;
        for (const Line& line : lines) sum += line.quantity * line.price;
        return sum;
    }
};

constexpr std::int16_t vat_percent = 16;

// Totals are handed over as decimal texts.
tolvex::Text decimal_text(double amount)
{
    char text[40];
    std::snprintf(text, sizeof text, "%.2f", amount);
    return tolvex::to_text(text);
}

void load_issuer(tolvex::GeneraDocto& documents)
{
    const bool loaded =
        documents.GetDatosEmpresa(1) && documents.GetDatosSucursal(1, 1) && documents.GetDatosCertificado(1);
    if (!loaded) throw tolvex::Error(5, u"no se pudo cargar el emisor: " + tolvex::last_error());
}

void stage(const Sale& sale, const tolvex::Text& folder)
{
    const double subtotal = sale.subtotal(), vat = subtotal * vat_percent / 100;
    tolvex::Cliente().SetDatosClientes(sale.customer_rfc, sale.customer_name, u"", u"", u"", u"", u"", u"",
                                       u"", u"México", u"", decimal_text(subtotal), u"0", decimal_text(vat),
                                       decimal_text(subtotal + vat), 1, u"1",
                                       tolvex::Date::of(2011, 3, 15, 14, 5, 9), folder);
    tolvex::DetFacturas lines;
    lines.InicializaDetalleFactura();
    for (const Line& line : sale.lines) {
        const double amount = line.quantity * line.price;
        lines.SetDetalleDocto(u"", u"F", line.code, line.description, line.quantity, line.unit, line.price,
                              amount * vat_percent / 100, amount, vat_percent);
    }
}

void issue(const Sale& sale, const tolvex::Text& folder)
{
    tolvex::ConfigFE connection;
    connection.SetDatosConexion(u"", u"", folder + u"/tolvex.db", u"sqlite:");
    connection.AbrirConexion();

    tolvex::GeneraDocto documents;
    load_issuer(documents);
    stage(sale, folder);
    tolvex::Text folio;
    const bool from_counter = true;
    if (!documents.GeneraFacturaElectronica(folio, from_counter, u"ingreso", vat_percent))
        throw tolvex::Error(5, u"no se emitió: " + tolvex::last_error());
    std::cout << "Factura " << tolvex::to_utf8(folio) << " emitida\n";

    tolvex::Text next;
    if (documents.fgObtenFolioFactura(u"1", next))
        std::cout << "Sigue el folio " << tolvex::to_utf8(next) << '\n';
    connection.CierraConexion();
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 2) {
        std::cerr << "Uso: ejemplo_nativo CARPETA (la que hizo «tolvex demo --carpeta CARPETA»)\n";
        return 2;
    }
    try {
        const Sale sale{
            u"XAXX010101000",
            u"Público en general",
            {{u"CAF-01", u"Café de altura, 1 kg", u"KG", 2, 180}, {u"PAN-07", u"Pan", u"PZA", 12, 12.5}}};
        issue(sale, tolvex::to_text(argv[1]));
    } catch (const tolvex::Error& error) {
        std::cerr << "ejemplo_nativo: " << error.what() << '\n';
        return 1;
    }
    return 0;
}
