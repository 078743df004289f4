#include "issuing/original_string.hpp"

#include "core/display_patterns.hpp"
#include "core/errors.hpp"
#include "core/numbers.hpp"
#include "core/text.hpp"
#include "issuing/amount_patterns.hpp"

namespace tolvex {

namespace {

using Of = OriginalPiece::Of;

// Pieces of one part of the string, put behind those that are there.
class Part
{
public:
    Part(OriginalPieces& pieces, Of of, std::int32_t line = 0) : pieces_(pieces), of_(of), line_(line) {}

    void add(TextView name, Text value) { pieces_.push_back({of_, name, std::move(value), line_}); }
    void add_unless_empty(TextView name, const Text& value)
    {
        if (!value.empty()) add(name, value);
    }

private:
    OriginalPieces& pieces_;
    const Of of_;
    const std::int32_t line_;
};

// Deliberate: the series only enters when the version does not, whatever its own flag says.
void add_version_or_series(Part& header, const Session& session, const DocumentValues& document)
{
    if (session.gMostrarVersion)
        header.add(u"versión", document.DocVersion);
    else if (session.gMostrarSerie)
        header.add(u"serie", session.gSerie);
}

void add_header(OriginalPieces& pieces, const Session& session, const DocumentValues& document)
{
    Part header(pieces, Of::header);
    add_version_or_series(header, session, document);
    header.add(u"fecha", document.DocFecha);
    if (session.gMostrarTipoDeComprobante)
        header.add(u"tipo de comprobante", document.es_nota_credito ? u"egreso" : u"ingreso");
    if (session.gMostrarFormadePago) header.add(u"forma de pago", u"PAGO EN UNA SOLA EXHIBICION");
    if (session.gMostrarSubtotal) header.add(u"subtotal", format(session.gSubtotal, amount_pattern));
    header.add(u"tipo de cambio", document.DocTipoCambio);
    header.add(u"moneda", document.DocMoneda);
    if (session.gMostrarTotal) header.add(u"total", format(session.gTotal, amount_pattern));
}

// Deliberate: interior number, locality and reference never enter the string.
void add_issuer(OriginalPieces& pieces, const DocumentValues& document)
{
    Part issuer(pieces, Of::issuer);
    issuer.add(u"RFC del emisor", document.EmiRfc);
    issuer.add(u"nombre del emisor", document.EmiNombre);
    issuer.add(u"calle del emisor", document.EmiCalle);
    issuer.add_unless_empty(u"número exterior del emisor", document.EmiNoExterior);
    issuer.add_unless_empty(u"colonia del emisor", document.EmiColonia);
    issuer.add_unless_empty(u"municipio del emisor", document.EmiMunicipio);
    issuer.add_unless_empty(u"estado del emisor", document.EmiEstado);
    issuer.add_unless_empty(u"país del emisor", document.EmiPais);
    issuer.add(u"código postal del emisor", document.EmiCodigoPostal);
}

// Deliberate: interior number, locality and reference never enter the string.
void add_receiver(OriginalPieces& pieces, const DocumentValues& document)
{
    Part receiver(pieces, Of::receiver);
    receiver.add(u"RFC del receptor", document.RecRfc);
    receiver.add(u"nombre del receptor", document.RecNombre);
    receiver.add_unless_empty(u"calle del receptor", document.RecCalle);
    receiver.add_unless_empty(u"número exterior del receptor", document.RecNoExterior);
    receiver.add_unless_empty(u"colonia del receptor", document.RecColonia);
    receiver.add_unless_empty(u"municipio del receptor", document.RecMunicipio);
    receiver.add_unless_empty(u"estado del receptor", document.RecEstado);
    receiver.add_unless_empty(u"país del receptor", document.RecPais);
    receiver.add_unless_empty(u"código postal del receptor", document.RecCodigoPostal);
}

// Deliberate: the product key never enters the string.
void add_line(OriginalPieces& pieces, const DetalleRow& row, std::int32_t number)
{
    Part line(pieces, Of::line, number);
    line.add(u"cantidad", format(row.Cantidad, u"###########0.00"));
    line.add(u"unidad", trim(row.Unidad));
    line.add(u"producto", trim(row.Producto));
    line.add(u"precio", format(round_half_even(to_number(row.PrecioSinIva), 2), u"############0.00"));
    line.add(u"importe", format(round_half_even(to_number(row.Importe), 2), total_pattern));
}

// Deliberate: with a withholding the string carries no totals, and prints both withholdings even when one is
// zero.
void add_taxes(OriginalPieces& pieces, const Session& session, const DocumentValues& document)
{
    Part taxes(pieces, Of::taxes);
    const Text iva = format(document.DocImpuesto, amount_pattern);
    const double iva_retained = to_number(session.gIvaRet);
    const double isr_retained = to_number(session.gISRRet);
    const bool retained = iva_retained > 0 || isr_retained > 0;
    if (retained) {
        taxes.add(u"impuesto retenido", u"ISR");
        taxes.add(u"ISR retenido", format(isr_retained, amount_pattern));
        taxes.add(u"impuesto retenido", u"IVA");
        taxes.add(u"IVA retenido", format(iva_retained, amount_pattern));
    }
    taxes.add(u"impuesto trasladado", u"IVA");
    taxes.add(u"tasa del IVA", document.DocTasa);
    taxes.add(u"IVA", iva);
    if (!retained) taxes.add(u"total de impuestos trasladados", iva);
}

// None when a staged value cannot be read. Lack of memory is no fault of theirs, and ends the issue.
OriginalPieces header_and_issuer(Session& session, DocumentValues& document)
try {
    OriginalPieces pieces;
    read_date_and_amounts(session, document);
    add_header(pieces, session, document);
    add_issuer(pieces, document);
    return pieces;
} catch (const Error& error) {
    remember_error(error.description());
    return {};
}

// Part after part: with the header the amounts are read that the taxes print.
template <class Use>
void go_over_parts(Session& session, DocumentValues& document, Use use)
{
    const auto part = [&](const auto& add) {
        OriginalPieces pieces;
        add(pieces);
        use(std::move(pieces));
    };
    use(header_and_issuer(session, document));
    part([&](OriginalPieces& pieces) { add_receiver(pieces, document); });
    for (std::int32_t i = 1; i <= session.gNumDetalle; ++i)
        part([&](OriginalPieces& pieces) { add_line(pieces, session.gDetalle[i], i); });
    part([&](OriginalPieces& pieces) { add_taxes(pieces, session, document); });
}

void append(Text& text, const OriginalPieces& pieces)
{
    for (const OriginalPiece& piece : pieces) (text += u'|') += piece.value;
}

} // namespace

Text header_piece(Session& session, DocumentValues& document)
{
    Text text;
    append(text, header_and_issuer(session, document));
    return text;
}

OriginalPieces original_pieces(Session& session, DocumentValues& document)
{
    OriginalPieces all;
    go_over_parts(session, document,
                  [&](OriginalPieces part) { std::move(part.begin(), part.end(), std::back_inserter(all)); });
    return all;
}

Text original_string(Session& session, DocumentValues& document)
{
    Text text = u"|";
    go_over_parts(session, document, [&](const OriginalPieces& part) { append(text, part); });
    return text += u"||";
}

} // namespace tolvex
