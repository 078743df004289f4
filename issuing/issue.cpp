#include "issuing/issue.hpp"

#include "core/errors.hpp"
#include "issuing/cfdi_document.hpp"
#include "issuing/master_data.hpp"
#include "issuing/original_string.hpp"
#include "issuing/seal.hpp"
#include "issuing/stored_documents.hpp"
#include "platform/messages.hpp"
#include "session/configuracion.hpp"

#include <cmath>

namespace tolvex {

namespace {

// One issue from the folio range to the XML file.
class Issue
{
public:
    Issue(Session& session, DocumentValues& document, Text& vlnFactura, const IssueOptions& options)
        : session_(session), document_(document), vlnFactura_(vlnFactura), options_(options)
    {}

    bool run();

private:
    bool load_folio_range();
    bool take_folio();
    void derive_folio_number();
    void prepare_document();
    void seal();
    Text store();
    void store_header_row();
    Text read_identifier();
    void store_receiver(const Text& identifier);
    void store_lines(const Text& identifier);
    void advance_counter();
    Text amount_in_words();

    Connection& connection() { return shared_connection(session_); }
    bool fail(const Text& message, const Text& title, MessageIcon icon);

    Session& session_;
    DocumentValues& document_;
    Text& vlnFactura_;
    const IssueOptions& options_;
    double nFolioFE_ = 0;
};

bool Issue::run()
{
    if (!load_folio_range()) return false;
    if (options_.CtrlFolioInterno && !take_folio()) return false;
    derive_folio_number();
    prepare_document();
    seal();
    const Text identifier = store();
    if (!write_comprobante(session_, document_, identifier, document_.es_nota_credito,
                           options_.vlGeneraAddenda))
        return false;
    // The document is issued: work files that stay behind do not undo that.
    return trapping(true, [&] { return remove_seal_files(session_.gRutaDeArchivos), true; });
}

bool Issue::fail(const Text& message, const Text& title, MessageIcon icon)
{
    remember_error(message);
    show_message(message, title, icon);
    return false;
}

bool Issue::load_folio_range()
{
    if (fgCargaDatosFolio(session_, session_.gClaveFolio)) return true;
    return fail(u"No se pudo obtener los datos de los folios digitales para la empresa No " +
                    decimal(session_.gnEmpresa) + u" y el Registro No. " + session_.gClaveFolio,
                component_title, MessageIcon::none);
}

bool Issue::take_folio()
{
    vlnFactura_ = u"0";
    if (fgObtenFolioFactura(session_, session_.gClaveFolio, vlnFactura_)) return true;
    connection().roll_back();
    return fail(u"No se pudo obtener folio de factura, favor de verificar", u"Facturación Electronica",
                MessageIcon::information);
}

// Deliberate: the number starts at the first "0" of a zero-padded folio, so A00123 is 123 and 120 is 0.
void Issue::derive_folio_number()
{
    const auto first_zero = vlnFactura_.find(u'0');
    nFolioFE_ =
        std::floor(to_number(first_zero == Text::npos ? vlnFactura_ : vlnFactura_.substr(first_zero)));
}

void Issue::prepare_document()
{
    document_.base64_alphabet = u"ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    prepare_document_values(session_, document_);
    copy_issuer_address(session_, document_);
    document_.DocSerie = session_.gSerie;
    document_.DocFolio = number_as_text(nFolioFE_);
    document_.DocSerieCertificado = session_.gSerieCertificado;
    document_.DocVersion = u"3.0";
    document_.DocImpuestoNombre = u"IVA";
    document_.DocTasa = format(static_cast<double>(options_.vlTasaDeIva), u"####0.00");
    document_.es_nota_credito = !equal_ignoring_case(options_.vlTipoDocumento, u"ingreso");
    document_.line_count = 0;
}

void Issue::seal()
{
    const Text& folder = session_.gRutaDeArchivos;
    const Text original = original_string(session_, document_);
    write_seal_batch(folder, digest_for(document_.DocFechaDate));
    document_.original_string = utf8_characters(original);
    write_original_string(folder, document_.original_string);
    document_.sello = clean_seal(run_seal_batch(folder), document_.base64_alphabet);
}

// Deliberate: statement after statement without a transaction; a failure leaves what was stored before it.
Text Issue::store()
{
    WriteBurst burst(connection());
    store_header_row();
    const Text identifier = read_identifier();
    store_receiver(identifier);
    store_lines(identifier);
    if (options_.CtrlFolioInterno) advance_counter();
    burst.finish();
    return identifier;
}

Text Issue::amount_in_words()
{
    return fgValorCampo(session_, u"Letra",
                        u"Select Letra=dbo.fg_Numero2Letra(" + number_as_text(document_.DocTotal) + u",'" +
                            session_.gMoneda + u"')")
        .text();
}

void Issue::store_header_row()
{
    const auto rounded = [](const Text& staged) { return to_number(format(staged, u"#########0.00")); };
    const bool egreso = document_.es_nota_credito;

    UpdatableRecordset row = connection().open_updatable(u"Select * from FE_VENTAS_RESUMEN Where 1=0");
    row.add_new();
    row.set(u"cDocumento", vlnFactura_);
    row.set(u"cTipoDocumento", egreso ? u"N" : u"F");
    row.set(u"nEmpresa", session_.gnEmpresa);
    row.set(u"nSucursal", session_.gnSucursal);
    row.set(u"cEfecto", egreso ? u"E" : u"I");
    row.set(u"cCliente", document_.DocCliente);
    row.set(u"dFecha", document_.DocFechaDate);
    row.set(u"cSerieFolioFE",
            trim(document_.DocSerie)); // Deliberate: the series alone, in spite of the name.
    row.set(u"cSerie", document_.DocSerie);
    row.set(u"nFolioFE", nFolioFE_);
    row.set(u"cNumero_Aprobacion", document_.DocNumeroAprobacion);
    row.set(u"cSerie_Certificado", document_.DocSerieCertificado);
    row.set(u"cSelloDigital", document_.sello);
    row.set(u"cCadenaOriginal", document_.original_string);
    row.set(u"cFormaDePago", document_.DocFormaDePago);
    row.set(u"nSubTotalAD", rounded(session_.gSubtotal));
    row.set(u"nDescuento", rounded(session_.gDescuento));
    row.set(u"nSubTotalDD", rounded(session_.gSubtotalDD));
    row.set(u"nIva", to_number(session_.gImpuesto));
    row.set(u"nTotal", rounded(session_.gTotal));
    row.set(u"nImporteConLetra", amount_in_words());
    row.set(u"cStatus", u"A");
    row.set(u"cMoneda", session_.gMoneda);
    row.set(u"nParidad", to_number(session_.gParidad));
    row.set(u"nIvaRetenido", to_number(session_.gIvaRet));
    row.set(u"nIsrRetenido", to_number(session_.gISRRet));
    row.update();
}

// Deliberate: the highest identifier after the insert, without a lock; another station's may be taken for
// ours.
Text Issue::read_identifier()
{
    const Recordset rows =
        connection().query(u"select isnull(max(nid),0) as nidfe from FE_VENTAS_RESUMEN(nolock)");
    return number_as_text(rows[u"nidfe"].number());
}

// Deliberate: text values go between quotes as they are; a quote in one of them breaks the statement.
Text quoted(const Text& value) { return u"'" + value + u"'"; }

Text without_bars(const Text& value) { return quoted(without(value, u'|')); }

void Issue::store_receiver(const Text& identifier)
{
    const DocumentValues& d = document_;
    // Deliberate: 'F' and 'I' for credit notes too.
    const Text sql =
        u"insert into FE_ClienteFactura(nidFE,nFolioDocto,cTipoDocumento,cEmpresa,cSucursal,cEfecto,dFecha"
        u",cSerieFolioFE,cSerie,cNumero_Aprobacion,cSerie_Certificado,cSelloDigital"
        u",cCadenaOriginal,cRfcCte,cNombreCte,cCalleCte,cNumExteriorCte,cNumInteriorCte"
        u",cColoniaCte,cLocalidadCte,cEstaadoCte,cMunicipioCte,cPaisCte,cCodPostalCte"
        u",nSubtotalDocto,nImporteDescto,nSubtotalConDescto,nImporteIva,nImporteTotal)"
        u"values(" +
        join({identifier,
              quoted(vlnFactura_),
              u"'F'",
              quoted(decimal(session_.gnEmpresa)),
              quoted(decimal(session_.gnSucursal)),
              u"'I'",
              quoted(d.DocFecha),
              quoted(trim(d.DocSerie)),
              quoted(d.DocSerie),
              quoted(d.DocNumeroAprobacion),
              quoted(d.DocSerieCertificado),
              quoted(d.sello),
              quoted(d.original_string),
              without_bars(d.RecRfc),
              without_bars(d.RecNombre),
              without_bars(d.RecCalle),
              without_bars(d.RecNoExterior),
              without_bars(d.RecNoInterior),
              without_bars(d.RecColonia),
              without_bars(d.RecLocalidad),
              without_bars(d.RecEstado),
              without_bars(d.RecMunicipio),
              without_bars(d.RecPais),
              without_bars(d.RecCodigoPostal),
              number_as_text(d.DocSubTotal),
              number_as_text(d.DocDescuento),
              number_as_text(d.DocSubTotalDD),
              number_as_text(d.DocImpuesto),
              number_as_text(d.DocTotal)},
             u",") +
        u")";
    connection().execute(sql);
    connection().execute(u"Update FE_ClienteFactura set cDatoAdicional1 = '" + session_.gDatoAdicional +
                         u"', cDatoAdicional2 = '" + session_.gDatoAdicional2 + u"',cDatoAdicional3 = '" +
                         session_.gDatoAdicional3 + u"' Where nidFE = " + identifier);
}

void Issue::store_lines(const Text& identifier)
{
    for (std::int32_t i = 1; i <= session_.gNumDetalle; ++i) {
        const auto& line = session_.gDetalle[i];
        // Deliberate: 'F' for credit notes too.
        connection().execute(u"insert into FE_VENTAS_RESUMEN_DET(nIdFe,nFolioDocto,cTipoDocumento ,cProducto "
                             u",nCantidad ,cunidad "
                             u",nPrecio ,nIva ,nImporte ,nImpuesto, nRenglon,cArticulo,nEmpresa,nSucursal)"
                             u"values(" +
                             identifier + u",'" + vlnFactura_ + u"','F','" + line[3] + u"'," + line[4] +
                             u",'" + line[5] + u"'," + line[6] + u"," + line[7] + u"," + line[8] + u"," +
                             line[9] + u"," + decimal(i) + u",'" + line[11] + u"'," +
                             decimal(session_.gnEmpresa) + u"," + decimal(session_.gnSucursal) + u")");
    }
}

// Deliberate: the counter is set to the folio taken, not incremented.
void Issue::advance_counter()
{
    connection().execute(u"update fe_folios set nultimofolio=" + vlnFactura_ + u"\rwhere nfolio=" +
                         session_.gClaveFolio);
}

} // namespace

bool issue_document(Session& session, DocumentValues& document, Text& vlnFactura, const IssueOptions& options)
{
    document.xml_path.clear();
    return trapping(false, [&] { return Issue(session, document, vlnFactura, options).run(); });
}

} // namespace tolvex
