#include "issuing/document_values.hpp"

#include "core/dates.hpp"
#include "core/display_patterns.hpp"
#include "core/numbers.hpp"
#include "core/text.hpp"
#include "issuing/amount_patterns.hpp"

namespace tolvex {

namespace {

// Deliberate: any currency other than "PESOS", to the letter, is USD; for pesos the rate is always 1.
void set_currency(const Session& session, DocumentValues& document)
{
    const bool in_pesos = session.gMoneda == u"PESOS";
    document.DocMoneda = in_pesos ? u"MXN" : u"USD";
    document.DocTipoCambio = format(session.gParidad, in_pesos ? u"1" : exchange_rate_pattern);
}

void set_header(const Session& session, double folio_number, const IssueOptions& options,
                DocumentValues& document)
{
    document.es_nota_credito = !equal_ignoring_case(options.vlTipoDocumento, u"ingreso");
    document.DocVersion = u"3.0";
    document.DocSerie = session.gSerie;
    document.DocFolio = number_as_text(folio_number);
    document.DocSerieCertificado = session.gSerieCertificado;
    document.DocNumeroAprobacion = session.gNumeroAprobacion;
    document.DocFecha = session.gFechaHoraDocto;
    document.DocFormaDePago = session.gFormaPago == 1 ? u"Contado" : u"Credito";
    document.DocCliente = u"000000";
    document.DocTasa = format(static_cast<double>(options.vlTasaDeIva), rate_pattern);
}

void set_issuer(const Session& session, DocumentValues& document)
{
    document.EmiRfc = session.gEmpRfc;
    document.EmiNombre = session.gEmpNombre;
    document.EmiCalle = session.gEmpCalle;
    document.EmiNoExterior = session.gEmpNumExterior;
    document.EmiColonia = session.gEmpColonia;
    document.EmiLocalidad = session.gEmpLocalidad;
    document.EmiMunicipio = session.gEmpMunicipio;
    document.EmiEstado = session.gEmpEstado;
    document.EmiPais = session.gEmpPais;
    document.EmiCodigoPostal = session.gEmpCodigoPostal;
}

void set_receiver(const Session& session, DocumentValues& document)
{
    document.RecRfc = without(session.gRfcCliente, u'-');
    document.RecNombre = session.gNombreCliente;
    document.RecCalle = session.gCalle;
    document.RecNoExterior = session.gNumeroExt;
    document.RecNoInterior = session.gNumeroInt;
    document.RecColonia = session.gColonia;
    document.RecLocalidad = session.gLocalidad;
    document.RecMunicipio = session.gMunicipio;
    document.RecEstado = session.gEstado;
    document.RecPais = session.gPais;
    document.RecCodigoPostal = session.gCodigoPos;
}

} // namespace

DocumentValues document_values(const Session& session, double folio_number, const IssueOptions& options)
{
    DocumentValues document;
    set_header(session, folio_number, options, document);
    set_currency(session, document);
    set_issuer(session, document);
    set_receiver(session, document);
    return document;
}

void read_date_and_amounts(Session& session, DocumentValues& document)
{
    session.gSubtotalDD = number_as_text(to_number(session.gSubtotal) - to_number(session.gDescuento));
    document.DocFechaDate = to_date(replace_all(document.DocFecha, u"T", u" "));
    document.DocSubTotal = rounded_amount(session.gSubtotal);
    document.DocDescuento = rounded_amount(session.gDescuento);
    document.DocSubTotalDD = rounded_amount(session.gSubtotalDD);
    document.DocImpuesto = rounded_amount(session.gImpuesto);
    document.DocTotal = rounded_amount(session.gTotal);
}

} // namespace tolvex
