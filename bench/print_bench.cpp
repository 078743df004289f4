// What printing costs, by lines per document: the layout that comes with the program composed into pages and
// written as a PDF file, on a warm process; the query's share is measured apart. Each size runs in a process
// of its own, so that its peak memory is its own.
#include "bench/measuring.hpp"
#include "core/numbers.hpp"
#include "platform/clock.hpp"
#include "platform/pages/pdf.hpp"
#include "printing/default_layout.hpp"
#include "printing/document_report.hpp"
#include "schema/schema.hpp"

#include <algorithm>
#include <filesystem>

namespace {

using namespace tolvex;
using namespace tolvex::bench;

// A document as it would have been issued.
void store_document(Connection& connection, int lines)
{
    connection.begin_transaction();
    connection.execute(u"Insert Into FE_EMPRESAS (nEmpresa, cNombre, cRfc, cCalle) Values (1, 'ABARROTES LA "
                       u"ESPERANZA, S.A. DE C.V.', 'AES010101AAA', 'CALLE DE LA ALHÓNDIGA')");
    connection.execute(
        u"Insert Into FE_VENTAS_RESUMEN (nID, cDocumento, cTipoDocumento, nEmpresa, nSucursal, dFecha,"
        u" cSerie, nFolioFE, cSelloDigital, cCadenaOriginal, nSubTotalAD, nDescuento, nIva, nTotal,"
        u" nIvaRetenido, nIsrRetenido, nParidad, cStatus, nImporteConLetra) Values (1, '1', 'F', 1, 1,"
        u" '2011-03-15 14:05:09', 'A', 1, '" +
        Text(344, u'q') + u"', '" + Text(600, u'x') +
        u"', 1000, 0, 160, 1160, 0, 0, 1, 'A', 'MIL CIENTO SESENTA PESOS 00/100 M.N.')");
    for (int i = 1; i <= lines; ++i)
        connection.execute(
            u"Insert Into FE_VENTAS_RESUMEN_DET (nIdFe, nRenglon, nCantidad, cunidad, cArticulo,"
            u" cProducto, nPrecio, nImporte) Values (1, " +
            decimal(i) + u", 5, 'KG', 'CAF-01', 'Café de altura tostado y molido, bolsa de 1 kg', 180, 900)");
    connection.commit();
}

class PageCounter : public pages::PageSink
{
public:
    explicit PageCounter(pages::PageSink& sink) : sink_(sink) {}
    void take(pages::Page page) override
    {
        ++count;
        sink_.take(std::move(page));
    }
    int count = 0;

private:
    pages::PageSink& sink_;
};

int measure(int lines)
{
    const std::filesystem::path folder = BENCH_FOLDER;
    std::filesystem::remove_all(folder);
    std::filesystem::create_directories(folder);
    Connection connection;
    connection.connection_string = u"server=sqlite:;database=" + to_text((folder / "bench.db").string());
    connection.open();
    create_schema(connection);
    store_document(connection, lines);

    const printing::Layout layout = printing::parse_layout(layouts::factura);
    const Text sql = layout.data_sets.front().command.source();
    const Text pdf = to_text((folder / "factura.pdf").string());
    std::vector<double> whole, query;
    int page_count = 0;
    for (int i = 0; i < std::clamp(4000 / lines, 3, 50); ++i) {
        query.push_back(milliseconds([&] {
            for (Recordset rows = connection.query(sql, {{u"cIndFactura", u"1"}, {u"nEmpresa", 1}});
                 !rows.eof(); rows.move_next())
                for (std::size_t column = 0; column < rows.columns().size(); ++column) rows.value(column);
        }));
        whole.push_back(milliseconds([&] {
            pages::PdfFile file(pdf, {u"Factura", u""});
            PageCounter counter(file);
            printing::compose(layout, report_parameters({u"1", 1}), connection, local_now(), counter);
            file.finish();
            page_count = counter.count;
        }));
    }
    const double rest = median(whole) - median(query);
    row(fmt::format("page of a PDF, {} lines", lines), rest / page_count, peak_mebibytes(),
        fmt::format("{} pages in {:.1f} ms, and their query in {:.1f}", page_count, rest, median(query)));
    std::filesystem::remove_all(folder);
    return 0;
}

} // namespace

int main(int count, char** words)
{
    if (count > 1) return measure(std::atoi(words[1]));
    for (const int lines : {10, 100, 1'000, 10'000, 30'000}) run(fmt::format("'{}' {}", words[0], lines));
}
