#include "issuing/original_string.hpp"

#include "core/display_patterns.hpp"
#include "core/errors.hpp"
#include "core/numbers.hpp"
#include "core/text.hpp"
#include "issuing/amount_patterns.hpp"

namespace tolvex {

namespace {

Text with_bar(const Text& value) { return value + u"|"; }

Text with_bar_unless_empty(const Text& value) { return value.empty() ? value : with_bar(value); }

// Deliberate: the series only enters when the version does not, whatever its own flag says.
Text version_or_series(const Session& session, const DocumentValues& document)
{
    if (session.gMostrarVersion) return u"|" + document.DocVersion;
    if (session.gMostrarSerie) return u"|" + session.gSerie;
    return {};
}

// Deliberate: interior number, locality and reference never enter the string.
Text issuer(const DocumentValues& document)
{
    return u"|" + with_bar(document.EmiRfc) + with_bar(document.EmiNombre) + with_bar(document.EmiCalle) +
           with_bar_unless_empty(document.EmiNoExterior) + with_bar_unless_empty(document.EmiColonia) +
           with_bar_unless_empty(document.EmiMunicipio) + with_bar_unless_empty(document.EmiEstado) +
           with_bar_unless_empty(document.EmiPais) + document.EmiCodigoPostal; // no bar after it
}

Text build_header_piece(const Session& session, const DocumentValues& document)
{
    Text piece = version_or_series(session, document) + u"|" + document.DocFecha;
    if (session.gMostrarTipoDeComprobante) piece += document.es_nota_credito ? u"|egreso" : u"|ingreso";
    if (session.gMostrarFormadePago) piece += u"|PAGO EN UNA SOLA EXHIBICION";
    if (session.gMostrarSubtotal) piece += u"|" + format(session.gSubtotal, amount_pattern);
    piece += u"|" + document.DocTipoCambio + u"|" + document.DocMoneda;
    if (session.gMostrarTotal) piece += u"|" + format(session.gTotal, amount_pattern);
    return piece + issuer(document);
}

// Deliberate: interior number, locality and reference never enter the string.
Text receiver_piece(const DocumentValues& document)
{
    return u"|" + with_bar(document.RecRfc) + with_bar(document.RecNombre) +
           with_bar_unless_empty(document.RecCalle) + with_bar_unless_empty(document.RecNoExterior) +
           with_bar_unless_empty(document.RecColonia) + with_bar_unless_empty(document.RecMunicipio) +
           with_bar_unless_empty(document.RecEstado) + with_bar_unless_empty(document.RecPais) +
           with_bar_unless_empty(document.RecCodigoPostal);
}

// Deliberate: the product key never enters the string.
Text concept_piece(const DetalleRow& line)
{
    return with_bar(format(line.Cantidad, u"###########0.00")) + with_bar(trim(line.Unidad)) +
           with_bar(trim(line.Producto)) +
           with_bar(format(round_half_even(to_number(line.PrecioSinIva), 2), u"############0.00")) +
           with_bar(format(round_half_even(to_number(line.Importe), 2), total_pattern));
}

Text concepts_piece(const Session& session)
{
    Text piece;
    for (std::int32_t i = 1; i <= session.gNumDetalle; ++i) piece += concept_piece(session.gDetalle[i]);
    return piece;
}

// Deliberate: with a withholding the string carries no totals, and prints both withholdings even when one is
// zero.
Text taxes_piece(const Session& session, const DocumentValues& document)
{
    const Text iva = format(document.DocImpuesto, amount_pattern);
    const double iva_retained = to_number(session.gIvaRet);
    const double isr_retained = to_number(session.gISRRet);
    const Text transferred = u"IVA|" + with_bar(document.DocTasa) + iva;
    if (iva_retained <= 0 && isr_retained <= 0) return transferred + u"|" + iva + u"||";
    return u"ISR|" + format(isr_retained, amount_pattern) + u"|IVA|" + format(iva_retained, amount_pattern) +
           u"|" + transferred + u"||";
}

} // namespace

Text header_piece(Session& session, DocumentValues& document)
{
    return trapping(Text(), [&] {
        read_date_and_amounts(session, document);
        return build_header_piece(session, document);
    });
}

Text original_string(Session& session, DocumentValues& document)
{
    // Piece after piece: with the header the amounts are read that the taxes print.
    Text whole = u"|";
    whole += header_piece(session, document);
    whole += receiver_piece(document);
    whole += concepts_piece(session);
    whole += taxes_piece(session, document);
    return whole;
}

} // namespace tolvex
