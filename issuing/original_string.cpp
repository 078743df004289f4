#include "issuing/original_string.hpp"

#include "core/errors.hpp"

namespace tolvex {

namespace {

constexpr TextView amount_pattern = u"########0.00";

// A staged amount rounded to two decimals, as a number.
double rounded_amount(TextView staged) { return to_number(format(staged, u"#########0.00")); }

Text with_bar(const Text& value) { return value + u"|"; }

Text with_bar_unless_empty(const Text& value) { return value.empty() ? value : with_bar(value); }

// Deliberate: the series only enters when the version does not, whatever its own flag says.
Text version_or_series(const Session& session)
{
    if (session.gMostrarVersion) return u"|3.0";
    if (session.gMostrarSerie) return u"|" + session.gSerie;
    return {};
}

// Deliberate: any currency other than "PESOS", to the letter, is USD; for pesos the rate is always 1.
Text rate_and_currency(const Session& session)
{
    if (session.gMoneda == u"PESOS") return u"|" + format(session.gParidad, u"1") + u"|MXN";
    return u"|" + format(session.gParidad, u"#######0.0000") + u"|USD";
}

// Deliberate: interior number, locality and reference never enter the string.
Text issuer(const DocumentValues& document)
{
    return u"|" + with_bar(document.EmiRfc) + with_bar(document.EmiNombre) + with_bar(document.EmiCalle) +
           with_bar_unless_empty(document.EmiNoExterior) + with_bar_unless_empty(document.EmiColonia) +
           with_bar_unless_empty(document.EmiMunicipio) + with_bar_unless_empty(document.EmiEstado) +
           with_bar_unless_empty(document.EmiPais) + document.EmiCodigoPostal; // no bar after it
}

void set_amounts(const Session& session, DocumentValues& document)
{
    document.DocSubTotal = rounded_amount(session.gSubtotal);
    document.DocDescuento = rounded_amount(session.gDescuento);
    document.DocSubTotalDD = rounded_amount(session.gSubtotalDD);
    document.DocImpuesto = rounded_amount(session.gImpuesto);
    document.DocTotal = rounded_amount(session.gTotal);
}

Text build_header_piece(Session& session, DocumentValues& document, bool EsNotaCredito)
{
    session.gSubtotalDD = number_as_text(to_number(session.gSubtotal) - to_number(session.gDescuento));

    Text piece = version_or_series(session) + u"|" + document.DocFecha;
    if (session.gMostrarTipoDeComprobante) piece += EsNotaCredito ? u"|egreso" : u"|ingreso";
    if (session.gMostrarFormadePago) piece += u"|PAGO EN UNA SOLA EXHIBICION";
    if (session.gMostrarSubtotal) piece += u"|" + format(session.gSubtotal, amount_pattern);
    piece += rate_and_currency(session);
    if (session.gMostrarTotal) piece += u"|" + format(session.gTotal, amount_pattern);
    piece += issuer(document);

    document.DocCliente = u"000000";
    document.DocFechaDate = to_date(replace_all(document.DocFecha, u"T", u" "));
    set_amounts(session, document);
    return piece;
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
Text concept_piece(const std::array<Text, 12>& line)
{
    return with_bar(format(line[4], u"###########0.00")) + with_bar(trim(line[5])) + with_bar(trim(line[3])) +
           with_bar(format(round_half_even(to_number(line[6]), 2), u"############0.00")) +
           with_bar(format(round_half_even(to_number(line[8]), 2), u"##########0.00"));
}

Text concepts_piece(const Session& session, DocumentValues& document)
{
    Text piece;
    for (std::int32_t i = 1; i <= session.gNumDetalle; ++i) {
        piece += concept_piece(session.gDetalle[i]);
        ++document.line_count;
    }
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

void prepare_document_values(const Session& session, DocumentValues& document)
{
    document.DocFecha = session.gFechaHoraDocto;
    document.DocNumeroAprobacion = session.gNumeroAprobacion;
    document.DocCondicionPago = session.gFormaPago == 1 ? u"Contado" : u"Credito";
    document.DocFormaDePago = document.DocCondicionPago;
    document.RecRfc = without(session.gRfcCliente, u'-');
    document.RecNombre = session.gNombreCliente;
    document.RecCalle = session.gCalle;
    document.RecNoExterior = session.gNumeroExt;
    document.RecNoInterior = session.gNumeroInt;
    document.RecColonia = session.gColonia;
    document.RecLocalidad = session.gLocalidad;
    document.RecReferencia.clear();
    document.RecMunicipio = session.gMunicipio;
    document.RecEstado = session.gEstado;
    document.RecPais = session.gPais;
    document.RecCodigoPostal = session.gCodigoPos;
}

void copy_issuer_address(const Session& session, DocumentValues& document)
{
    document.EmiRfc = session.gEmpRfc;
    document.EmiNombre = session.gEmpNombre;
    document.EmiCalle = session.gEmpCalle;
    document.EmiNoExterior = session.gEmpNumExterior;
    document.EmiNoInterior = session.gEmpNumInterior;
    document.EmiColonia = session.gEmpColonia;
    document.EmiLocalidad = session.gEmpLocalidad;
    document.EmiReferencia.clear();
    document.EmiMunicipio = session.gEmpMunicipio;
    document.EmiEstado = session.gEmpEstado;
    document.EmiPais = session.gEmpPais;
    document.EmiCodigoPostal = session.gEmpCodigoPostal;
}

Text header_piece(Session& session, DocumentValues& document, bool EsNotaCredito)
{
    return trapping(Text(), [&] { return build_header_piece(session, document, EsNotaCredito); });
}

Text original_string(Session& session, DocumentValues& document)
{
    // Piece after piece: the header sets the amounts that the taxes print.
    Text whole = u"|";
    whole += header_piece(session, document, document.es_nota_credito);
    whole += receiver_piece(document);
    whole += concepts_piece(session, document);
    whole += taxes_piece(session, document);
    return whole;
}

} // namespace tolvex
