#include "issuing/document_list.hpp"

#include "core/display_patterns.hpp"
#include "core/simplified.hpp"

#include <cmath>

namespace tolvex {

namespace {

constexpr std::size_t documents_at_a_time = 500;

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

// What stands after "Where", and the values of its "@name"s.
struct Condition
{
    Text sql = u"1=1";
    std::vector<NamedValue> values;

    void require(TextView comparison, TextView name, Value value)
    {
        sql += u" And " + Text(comparison) + u"@" + Text(name);
        values.push_back({Text(name), std::move(value)});
    }
};

Condition condition_of(const DocumentFilter& filter)
{
    Condition condition;
    if (filter.company != 0) condition.require(u"v.nEmpresa=", u"empresa", filter.company);
    if (filter.branch != 0) condition.require(u"v.nSucursal=", u"sucursal", filter.branch);
    if (filter.from) condition.require(u"v.dFecha>=", u"desde", Date{std::floor(filter.from->days)});
    if (filter.to) condition.require(u"v.dFecha<", u"despues", Date{std::floor(filter.to->days) + 1});
    if (!filter.serie.empty()) condition.require(u"v.cSerie=", u"serie", filter.serie);
    if (!filter.folio.empty()) condition.require(u"v.cDocumento=", u"folio", filter.folio);
    if (!filter.status.empty()) condition.require(u"v.cStatus=", u"estado", filter.status);
    return condition;
}

Recordset rows_of(Connection& connection, const Condition& condition)
{
    return connection.query(
        u"Select v.nEmpresa,v.nSucursal,v.cTipoDocumento,v.cSerie,v.cDocumento,v.dFecha"
        u",c.cRfcCte,c.cNombreCte,v.nSubTotalDD,v.nIva,v.nTotal,v.cMoneda,v.cStatus,v.dFechaCan"
        u" From FE_VENTAS_RESUMEN v(nolock) Left Join FE_ClienteFactura c(nolock) On c.nidFE=v.nID Where " +
            condition.sql + u" Order By v.nID",
        condition.values);
}

} // namespace

DocumentList::DocumentList(Session& session, const DocumentFilter& filter)
    : receiver_(simplified(trim(filter.receiver))),
      rows_(rows_of(shared_connection(session), condition_of(filter)))
{}

std::vector<ListedDocument> DocumentList::next()
{
    std::vector<ListedDocument> documents;
    for (; !rows_.eof() && documents.size() < documents_at_a_time; rows_.move_next()) {
        ListedDocument document = listed(rows_);
        if (is_for(document)) documents.push_back(std::move(document));
    }
    return documents;
}

// Looked at here, since databases do not agree on which letters are alike.
bool DocumentList::is_for(const ListedDocument& document) const
{
    return receiver_.empty() || simplified(document.rfc).find(receiver_) != Text::npos ||
           simplified(document.name).find(receiver_) != Text::npos;
}

} // namespace tolvex
