#include "reports/monthly_report.hpp"

#include "core/code_pages.hpp"
#include "core/display_patterns.hpp"
#include "core/errors.hpp"
#include "core/numbers.hpp"
#include "core/text.hpp"
#include "platform/new_file.hpp"
#include "session/configuracion.hpp"

namespace tolvex {

namespace {

// A document whose line the file cannot hold.
class UnwritableDocument : public Error
{
public:
    explicit UnwritableDocument(const Error& error) : Error(error) {}
};

Text amount(const Value& value) { return value.is_null() ? Text() : format(value.currency(), u"######0.00"); }

bool is_active(const Value& status)
{
    const Text letter = trim(status.text());
    return letter.empty() || letter == u"A";
}

Error in_document(const Recordset& row, const Error& error)
{
    return {error.number(), u"Documento " + row[u"cDocumento"].text() + u": " + error.description()};
}

Text named_line(const Recordset& row)
{
    try {
        return report_line(row);
    } catch (const Error& error) {
        throw in_document(row, error);
    }
}

std::string line_bytes(const Recordset& row)
{
    const Text line = named_line(row);
    try {
        return to_windows_1252(line);
    } catch (const Error& error) {
        throw UnwritableDocument(in_document(row, error));
    }
}

} // namespace

Value company_rfc(Session& session, const Text& company)
{
    return fgValorCampo(session, u"cRfc",
                        u" select cRfc from fe_empresas (nolock) where nEmpresa=" + company);
}

Text plCreaNombreArchivo(const Text& folder, const Text& rfc, const Text& month, const Text& year)
{
    constexpr TextView layout = u"1";
    return trim(folder) + u"\\" + Text(layout) + trim(rfc) + trim(month) + trim(year) + u".TXT";
}

Text report_query(const ReportedMonth& month)
{
    return u"SELECT Fe.*,substring(convert(varchar(10),fe.DFECHA,103),1,6) + "
           u"convert(char(4),year(fe.DFECHA)) "
           u"+ ' ' + convert(varchar(8),fe.DFECHA,108) as FechaFormato,"
           u"replace(replace(c.crfcCte,' ',''),'-','') as cRfc,fo.nAnno \r"
           u" From FE_VENTAS_RESUMEN fe(Nolock) INNER JOIN  \r"
           u" FE_EMPRESAS em(Nolock) ON (fe.nEmpresa = em.nEmpresa) INNER JOIN  \r"
           u" FE_SUCURSALES S(Nolock) ON (fe.nEmpresa = s.nEmpresa AND fe.nSucursal = s.nSucursal) INNER "
           u"JOIN  \r"
           u" FE_FOLIOS fo(nolock) ON (fo.nempresa = s.nempresa AND fo.nsucursal = s.nsucursal AND "
           u"fo.ncertificado = s.ncertificado AND fo.cserie = fe.cserie) INNER JOIN  \r"
           u" FE_ClienteFactura c(nolock) ON (c.nfoliodocto = fe.cdocumento AND c.nIdFe = fe.nID)\r"
           u" WHERE  fe.nEmpresa = " +
           decimal(month.company) + u" And year(fe.dFecha) = " + month.year + u" AND month(fe.dFecha) =" +
           month.month;
}

Text report_line(const Recordset& row)
{
    Text line = u"|";
    for (const Text& field :
         {row[u"cRfc"].text(), row[u"cSerie"].text(), row[u"nFolioFE"].text(),
          row[u"nAnno"].text() + row[u"cNumero_Aprobacion"].text(), row[u"FechaFormato"].text(),
          amount(row[u"Ntotal"]), amount(row[u"nIva"]), Text(is_active(row[u"cStatus"]) ? u"1" : u"0"),
          row[u"cEfecto"].text(), Text(), Text(), Text()})
        line += field + u"|";
    return line + u"\r\n";
}

bool write_monthly_report(Connection& connection, const ReportedMonth& month, const Text& path)
{
    Recordset rows = connection.query(report_query(month));
    if (rows.eof()) return false;
    NewFile file(path);
    auto lines = files::create(file.path_beside());
    try {
        for (; !rows.eof(); rows.move_next()) lines->write(line_bytes(rows));
        lines->finish();
    } catch (const UnwritableDocument&) {
        throw;
    } catch (...) {
        quietly([&] { lines->finish(); });
        lines.reset();
        file.put_in_place();
        throw;
    }
    lines.reset();
    file.put_in_place();
    return true;
}

} // namespace tolvex
