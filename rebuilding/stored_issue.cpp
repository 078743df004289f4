#include "rebuilding/stored_issue.hpp"

#include "core/display_patterns.hpp"
#include "core/errors.hpp"
#include "core/numbers.hpp"
#include "core/text.hpp"
#include "database/literal.hpp"
#include "staging/header.hpp"
#include "staging/lines.hpp"

#include <algorithm>
#include <cmath>
#include <limits>

namespace tolvex {

namespace {

constexpr TextView header_table = u"FE_VENTAS_RESUMEN", receiver_table = u"FE_ClienteFactura",
                   lines_table = u"FE_VENTAS_RESUMEN_DET";

// Documents and lines that are read at a time. A document with more lines is read alone.
constexpr int most_documents = 200, most_lines = 4'000;

// A stretch of the documents' identifiers.
struct Stretch
{
    std::int64_t first = 0, last = 0;
    bool empty() const { return last == 0; }
    Text of(TextView column) const
    {
        return Text(column) + u" Between " + decimal(first) + u" And " + decimal(last);
    }
};

Text day(Date date) { return literal(format(date, u"yyyy-mm-dd")); }

Text condition_of(const StoredIssueFilter& filter)
{
    Text condition;
    if (filter.company != 0) condition += u" And nEmpresa=" + decimal(filter.company);
    if (filter.from) condition += u" And dFecha>=" + day(*filter.from);
    if (filter.to) condition += u" And dFecha<" + day(Date{std::floor(filter.to->days) + 1});
    return condition;
}

// Columns of one row, whose faults name them.
class Columns
{
public:
    Columns(const Recordset& row, TextView table) : row_(row), table_(table) {}

    Text text(TextView column) const { return row_[column].text(); }
    Text amount(TextView column) const { return required(column).text(); }
    double number(TextView column) const { return read(column, &Value::number); }
    Currency currency(TextView column) const { return read(column, &Value::currency); }
    Date date(TextView column) const { return read(column, &Value::date); }

private:
    Value required(TextView column) const
    {
        Value value = row_[column];
        if (value.is_null()) throw invalid_call(name(column) + u" está vacío");
        return value;
    }

    template <class Result>
    Result read(TextView column, Result (Value::*as)() const) const
    {
        const Value value = required(column);
        try {
            return (value.*as)();
        } catch (const Error& error) {
            throw invalid_call(name(column) + u" no sirve: " + error.description());
        }
    }

    Text name(TextView column) const { return Text(table_) + u"." + Text(column); }

    const Recordset& row_;
    const TextView table_;
};

// Runs a step over a document's row; what is wrong with the row is a fault of the document, not of the whole
// run.
template <class Step>
void noting_faults(StoredIssue& issue, Step step)
{
    try {
        step();
    } catch (const Error& error) {
        if (error.number() == database_error) throw;
        issue.faults.push_back(error.description());
    }
}

void read_identity(StoredIssue& issue, const Recordset& row)
{
    issue.nID = static_cast<std::int64_t>(row[u"nID"].number());
    issue.key.folio = row[u"cDocumento"].text();
    issue.kind = row[u"cTipoDocumento"].text();
    issue.serie = trim(row[u"cSerie"].text());
    issue.original_string = row[u"cCadenaOriginal"].text();
    issue.sello = row[u"cSelloDigital"].text();
    noting_faults(issue, [&] {
        const Columns columns(row, header_table);
        issue.key.company = to_int16(columns.number(u"nEmpresa"));
        issue.key.branch = to_int16(columns.number(u"nSucursal"));
    });
}

// Receiver and lines come later.
void stage_header_row(StoredIssue& issue, const Recordset& row)
{
    const Columns columns(row, header_table);
    issue.staged.gnSucursal = issue.key.branch;
    issue.staged.gSerie = issue.serie;
    issue.staged.gNumeroAprobacion = columns.text(u"cNumero_Aprobacion");
    issue.folio_number = columns.number(u"nFolioFE");
    const Text subtotal = columns.amount(u"nSubTotalAD"), discount = columns.amount(u"nDescuento"),
               tax = columns.amount(u"nIva"), total = columns.amount(u"nTotal"),
               currency = columns.text(u"cMoneda");
    Header header;
    header.Subtotal = subtotal;
    header.Descuento = discount;
    header.Impuesto = tax;
    header.Total = total;
    header.FechaHoraDocto = columns.date(u"dFecha");
    header.IvaRet = columns.currency(u"nIvaRetenido");
    header.ISRRet = columns.currency(u"nIsrRetenido");
    header.moneda = currency;
    header.Paridad = columns.currency(u"nParidad");
    stage_header(issue.staged, header);
    issue.staged.gSubtotalDD = columns.amount(u"nSubTotalDD");
}

StoredIssue read_header(const Recordset& row, Issuers& issuers)
{
    StoredIssue issue;
    read_identity(issue, row);
    issue.issuer = &issuers.find(issue.key.company, row[u"cSerie_Certificado"].text());
    issue.staged = issue.issuer->session;
    noting_faults(issue, [&] { stage_header_row(issue, row); });
    return issue;
}

// The receiver's copy of an amount is that of the document, to the cent.
void compare_amount(StoredIssue& issue, const Columns& receiver, TextView column, const Text& in_header,
                    TextView header_column)
{
    const double copy = receiver.number(column);
    if (in_header.empty() || std::abs(copy - to_number(in_header)) < 0.0099) return;
    issue.contradictions.push_back(Text(receiver_table) + u"." + Text(column) + u" dice " +
                                   number_as_text(copy) + u" y " + Text(header_table) + u"." +
                                   Text(header_column) + u" " + in_header);
}

void compare_copies(StoredIssue& issue, const Columns& receiver)
{
    const Session& staged = issue.staged;
    compare_amount(issue, receiver, u"nSubtotalDocto", staged.gSubtotal, u"nSubTotalAD");
    compare_amount(issue, receiver, u"nImporteDescto", staged.gDescuento, u"nDescuento");
    compare_amount(issue, receiver, u"nSubtotalConDescto", staged.gSubtotalDD, u"nSubTotalDD");
    compare_amount(issue, receiver, u"nImporteIva", staged.gImpuesto, u"nIva");
    compare_amount(issue, receiver, u"nImporteTotal", staged.gTotal, u"nTotal");
    if (receiver.text(u"cSelloDigital") != issue.sello)
        issue.contradictions.push_back(Text(receiver_table) + u".cSelloDigital no es el sello de " +
                                       Text(header_table));
}

void stage_receiver(StoredIssue& issue, const Recordset& row)
{
    if (++issue.receivers > 1) return;
    const Columns columns(row, receiver_table);
    Session& staged = issue.staged;
    staged.gRfcCliente = columns.text(u"cRfcCte");
    staged.gNombreCliente = columns.text(u"cNombreCte");
    staged.gCalle = columns.text(u"cCalleCte");
    staged.gNumeroExt = columns.text(u"cNumExteriorCte");
    staged.gNumeroInt = columns.text(u"cNumInteriorCte");
    staged.gColonia = columns.text(u"cColoniaCte");
    staged.gLocalidad = columns.text(u"cLocalidadCte");
    staged.gEstado = columns.text(u"cEstaadoCte");
    staged.gMunicipio = columns.text(u"cMunicipioCte");
    staged.gPais = columns.text(u"cPaisCte");
    staged.gCodigoPos = columns.text(u"cCodPostalCte");
    compare_copies(issue, columns);
    // The tax as the document prints it: the header's row keeps what the host staged, rounded once already.
    staged.gImpuesto = columns.amount(u"nImporteIva");
}

void stage_line_row(StoredIssue& issue, const Recordset& row)
{
    const Columns columns(row, lines_table);
    const Text product = columns.text(u"cProducto"), unit = columns.text(u"cunidad");
    Line line;
    line.FolioDocto = issue.key.folio;
    line.TipoDocumento = issue.kind;
    line.Producto = product;
    line.Unidad = unit;
    line.Cantidad = columns.currency(u"nCantidad");
    line.PrecioSinIva = columns.currency(u"nPrecio");
    line.Importe = columns.currency(u"nImporte");
    stage_line(issue.staged, line);
    issue.conceptos.push_back(read_concepto(row));
}

StoredIssue* with_identifier(std::vector<StoredIssue>& issues, const Value& identifier)
{
    const auto nID = static_cast<std::int64_t>(identifier.number());
    const auto found = std::ranges::lower_bound(issues, nID, {}, &StoredIssue::nID);
    return found == issues.end() || found->nID != nID ? nullptr : &*found;
}

std::vector<StoredIssue> read_headers(Connection& connection, Issuers& issuers, const Text& condition)
{
    std::vector<StoredIssue> issues;
    const Text sql = u"Select nID,cDocumento,cTipoDocumento,nEmpresa,nSucursal,dFecha,cSerie,nFolioFE"
                     u",cNumero_Aprobacion,cSerie_Certificado,cSelloDigital,cCadenaOriginal,nSubTotalAD"
                     u",nDescuento,nSubTotalDD,nIva,nTotal,cMoneda,nParidad,nIvaRetenido,nIsrRetenido"
                     u" From FE_VENTAS_RESUMEN(nolock) Where " +
                     condition + u" Order By nID";
    for (Recordset rows = connection.query(sql); !rows.eof(); rows.move_next())
        issues.push_back(read_header(rows, issuers));
    return issues;
}

void read_receivers(Connection& connection, const Stretch& stretch, std::vector<StoredIssue>& issues)
{
    const Text sql = u"Select nidFE,cSelloDigital,cRfcCte,cNombreCte,cCalleCte,cNumExteriorCte"
                     u",cNumInteriorCte,cColoniaCte,cLocalidadCte,cEstaadoCte,cMunicipioCte,cPaisCte"
                     u",cCodPostalCte,nSubtotalDocto,nImporteDescto,nSubtotalConDescto,nImporteIva"
                     u",nImporteTotal From FE_ClienteFactura(nolock) Where " +
                     stretch.of(u"nidFE");
    for (Recordset rows = connection.query(sql); !rows.eof(); rows.move_next())
        if (StoredIssue* issue = with_identifier(issues, rows[u"nidFE"]))
            noting_faults(*issue, [&] { stage_receiver(*issue, rows); });
}

void read_lines(Connection& connection, const Stretch& stretch, std::vector<StoredIssue>& issues)
{
    const Text sql = u"Select nIdFe,cProducto,nCantidad,cunidad,nPrecio,nImporte"
                     u" From FE_VENTAS_RESUMEN_DET(nolock) Where " +
                     stretch.of(u"nIdFe") + u" Order By nIdFe,nRenglon";
    for (Recordset rows = connection.query(sql); !rows.eof(); rows.move_next())
        if (StoredIssue* issue = with_identifier(issues, rows[u"nIdFe"]))
            noting_faults(*issue, [&] { stage_line_row(*issue, rows); });
}

std::vector<StoredIssue> read_stretch(Connection& connection, Issuers& issuers, const Stretch& stretch,
                                      const Text& condition)
{
    std::vector<StoredIssue> issues = read_headers(connection, issuers, stretch.of(u"nID") + condition);
    read_receivers(connection, stretch, issues);
    read_lines(connection, stretch, issues);
    return issues;
}

// The documents after one, with their company's certificate, until their lines are many.
struct NextDocuments
{
    Stretch stretch;
    std::vector<std::pair<std::int16_t, Text>> issuers;
};

NextDocuments documents_after(Connection& connection, std::int64_t last, const Text& condition)
{
    NextDocuments next;
    std::int64_t lines = 0;
    const Text sql = u"Select top " + decimal(most_documents) +
                     u" nID,nEmpresa,cSerie_Certificado,(Select count(*) From FE_VENTAS_RESUMEN_DET d(nolock)"
                     u" Where d.nIdFe=v.nID) as nRenglones From FE_VENTAS_RESUMEN v(nolock) Where nID>" +
                     decimal(last) + condition + u" Order By nID";
    for (Recordset rows = connection.query(sql); !rows.eof(); rows.move_next()) {
        lines += static_cast<std::int64_t>(rows[u"nRenglones"].number());
        if (!next.stretch.empty() && lines > most_lines) break;
        next.stretch.last = static_cast<std::int64_t>(rows[u"nID"].number());
        if (next.stretch.first == 0) next.stretch.first = next.stretch.last;
        if (!rows[u"nEmpresa"].is_null())
            next.issuers.emplace_back(rows[u"nEmpresa"].int16(), rows[u"cSerie_Certificado"].text());
    }
    return next;
}

Error no_document(const DocumentKey& key, const Text& kind)
{
    return invalid_call((kind == u"N" ? u"no existe la nota de crédito " : u"no existe la factura ") +
                        key.folio + u" de la empresa " + decimal(key.company) + u", sucursal " +
                        decimal(key.branch));
}

} // namespace

StoredIssues::StoredIssues(Session& session, Issuers& issuers, const StoredIssueFilter& filter)
    : session_(session), issuers_(issuers), condition_(condition_of(filter))
{}

std::size_t StoredIssues::count()
{
    return static_cast<std::size_t>(
        shared_connection(session_)
            .query(u"Select count(*) as n From FE_VENTAS_RESUMEN(nolock) Where 1=1" + condition_)[u"n"]
            .number());
}

std::vector<StoredIssue> StoredIssues::next()
{
    Connection& connection = shared_connection(session_);
    const NextDocuments documents = documents_after(connection, last_, condition_);
    if (documents.stretch.empty()) return {};
    last_ = documents.stretch.last;
    // Before the rows are read: a server lets one result set be open at a time.
    for (const auto& [company, certificate] : documents.issuers) issuers_.find(company, certificate);
    return read_stretch(connection, issuers_, documents.stretch, condition_);
}

StoredIssue read_stored_issue(Session& session, Issuers& issuers, const DocumentKey& key, const Text& kind)
{
    Connection& connection = shared_connection(session);
    Stretch stretch;
    Text certificate;
    {
        const Recordset newest = connection.query(
            u"Select nID,cSerie_Certificado From FE_VENTAS_RESUMEN(nolock) Where cDocumento=" +
            literal(key.folio) + u" And nEmpresa=" + decimal(key.company) + u" And nSucursal=" +
            decimal(key.branch) + u" And cTipoDocumento=" + literal(kind) + u" Order By nID Desc");
        if (newest.eof()) throw no_document(key, kind);
        stretch.first = stretch.last = static_cast<std::int64_t>(newest[u"nID"].number());
        certificate = newest[u"cSerie_Certificado"].text();
    }
    issuers.find(key.company, certificate);
    std::vector<StoredIssue> found = read_stretch(connection, issuers, stretch, u"");
    if (found.empty()) throw no_document(key, kind); // deleted in this moment
    return std::move(found.front());
}

} // namespace tolvex
