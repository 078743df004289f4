#include "issuing/document_list.hpp"

#include "core/display_patterns.hpp"
#include "core/simplified.hpp"

#include <cmath>

namespace tolvex {

namespace {

constexpr int documents_at_a_time = 500;

ListedDocument listed(const Recordset& row)
{
    const auto text = [&](TextView column) { return trim(row[column].text()); };
    const auto amount = [&](TextView column) { return format(row[column].text(), u"0.00"); };
    ListedDocument document;
    document.company = text(u"nEmpresa");
    document.branch = text(u"nSucursal");
    document.kind = text(u"cTipoDocumento");
    document.serie = text(u"cSerie");
    document.folio = text(u"cDocumento");
    document.date = text(u"dFecha");
    document.rfc = text(u"cRfcCte");
    document.name = text(u"cNombreCte");
    document.subtotal = amount(u"nSubTotalDD");
    document.tax = amount(u"nIva");
    document.total = amount(u"nTotal");
    document.currency = text(u"cMoneda");
    document.status = text(u"cStatus");
    document.cancelled_on = clip(text(u"dFechaCan"), 10);
    return document;
}

} // namespace

DocumentList::DocumentList(Session& session, const DocumentFilter& filter)
    : session_(session), receiver_(simplified(trim(filter.receiver)))
{
    const auto require = [&](bool asked, TextView condition, TextView name, const Value& value) {
        if (!asked) return;
        condition_ += u" And " + Text(condition) + u"@" + Text(name);
        parameters_.push_back({Text(name), value});
    };
    require(filter.company != 0, u"v.nEmpresa=", u"empresa", filter.company);
    require(filter.branch != 0, u"v.nSucursal=", u"sucursal", filter.branch);
    if (filter.from) require(true, u"v.dFecha>=", u"desde", Date{std::floor(filter.from->days)});
    if (filter.to) require(true, u"v.dFecha<", u"despues", Date{std::floor(filter.to->days) + 1});
    require(!filter.serie.empty(), u"v.cSerie=", u"serie", filter.serie);
    require(!filter.folio.empty(), u"v.cDocumento=", u"folio", filter.folio);
    require(!filter.status.empty(), u"v.cStatus=", u"estado", filter.status);
}

std::vector<ListedDocument> DocumentList::next()
{
    std::vector<ListedDocument> documents;
    while (documents.empty() && read_page(documents)) continue;
    return documents;
}

// Whether there was one.
bool DocumentList::read_page(std::vector<ListedDocument>& documents)
{
    std::vector<NamedValue> parameters = parameters_;
    parameters.push_back({u"ultimo", last_});
    const Text sql = u"Select top " + decimal(documents_at_a_time) +
                     u" v.nID,v.nEmpresa,v.nSucursal,v.cTipoDocumento,v.cSerie,v.cDocumento,v.dFecha"
                     u",c.cRfcCte,c.cNombreCte,v.nSubTotalDD,v.nIva,v.nTotal,v.cMoneda,v.cStatus,v.dFechaCan"
                     u" From FE_VENTAS_RESUMEN v(nolock)"
                     u" Left Join FE_ClienteFactura c(nolock) On c.nidFE=v.nID Where v.nID>@ultimo" +
                     condition_ + u" Order By v.nID";
    const std::int64_t before = last_;
    for (Recordset rows = shared_connection(session_).query(sql, parameters); !rows.eof(); rows.move_next()) {
        last_ = static_cast<std::int64_t>(rows[u"nID"].number());
        ListedDocument document = listed(rows);
        if (is_for(document)) documents.push_back(std::move(document));
    }
    return last_ != before;
}

// Looked at here, since databases do not agree on which letters are alike.
bool DocumentList::is_for(const ListedDocument& document) const
{
    return receiver_.empty() || simplified(document.rfc).find(receiver_) != Text::npos ||
           simplified(document.name).find(receiver_) != Text::npos;
}

} // namespace tolvex
